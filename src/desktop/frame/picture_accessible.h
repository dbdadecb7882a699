// A picture of an image dialog as screen readers hear it: a button, unavailable where its command cannot be run, though
// it takes the focus; its description says why.
#pragma once

#include <QAccessibleWidget>

namespace tz {

class PictureButton;

class PictureAccessible : public QAccessibleWidget {
 public:
  explicit PictureAccessible(PictureButton* button);

  // Lets the toolkit find it for every picture.
  static void Install();

  [[nodiscard]] QString text(QAccessible::Text kind) const override;
  [[nodiscard]] QAccessible::State state() const override;
  [[nodiscard]] QStringList actionNames() const override;
  void doAction(const QString& action) override;

 private:
  [[nodiscard]] PictureButton& Button() const;
};

}  // namespace tz

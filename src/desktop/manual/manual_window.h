// The window of the user manual: contents or what a search found on the left, the page on the right. It goes back and
// forward as a browser does, and its text grows and shrinks by itself.
#pragma once

#include <QWidget>
#include <vector>

#include "desktop/manual/manual_pages.h"

class QLineEdit;
class QListWidget;
class QStackedWidget;
class QTextBrowser;
class QToolButton;
class QTreeWidget;

namespace tz {

class ManualWindow : public QWidget {
  Q_OBJECT

 public:
  ManualWindow();

  // The page "index" where there is none of that name.
  void Open(const ManualPlace& wanted);
  // Beside a dialog that keeps all other windows waiting.
  void StandBeside(QWidget* dialog);
  [[nodiscard]] const ManualPlace& Place() const { return visited_[current_].place; }

 protected:
  void changeEvent(QEvent* event) override;

 private:
  struct Visit {
    ManualPlace place;
    int scroll = 0;
  };

  void LayOut();
  QWidget* MakeBar();
  QToolButton* AddButton(QWidget& bar, const char* name, const QString& text, const QString& tip,
                         const QList<QKeySequence>& keys, void (ManualWindow::*does)());
  void FillContents();
  void GoBack() { GoTo(current_ - 1); }
  void GoForward() { GoTo(current_ + 1); }
  void GoHome() { Open({QStringLiteral("index"), {}}); }
  void GoTo(std::size_t visit);
  void Larger() { SetZoom(zoom_ + 1); }
  void Smaller() { SetZoom(zoom_ - 1); }
  void UsualSize();
  void SetZoom(int zoom);
  void Print();
  void FocusSearch();
  void OnEscape();
  void OnLink(const QUrl& link);
  void Search(const QString& words);
  void OpenHit();
  // Sets the page anew, as size and colours are now.
  void SetPage();
  void ScrollTo(const QString& anchor);
  void ShowPlace();

  std::vector<Visit> visited_;
  std::size_t current_ = 0;
  int zoom_;
  std::vector<ManualHit> hits_;
  QTextBrowser* browser_;
  QTreeWidget* contents_;
  QListWidget* found_;
  QStackedWidget* left_;
  QLineEdit* search_;
  QToolButton* back_ = nullptr;
  QToolButton* forward_ = nullptr;
};

}  // namespace tz

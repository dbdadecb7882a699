// The image dialog: a window of clickable pictures at fixed places. Main pictures stay, area pictures are exchanged as
// a set. The layout is given in pixels at 100 % and grows with the window; what is drawn stays sharp.
#pragma once

#include <QDialog>
#include <vector>

#include "desktop/frame/img_dlg_button.h"

namespace tz {

// One picture as it is handed over; all zero clears the area pictures.
struct RCII {
  int unused1 = 0;
  int unused2 = 0;
  int command = 0;  // command id + commandBase
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  int visible = 0;
  int unused3 = 0;
  const char* text = nullptr;  // tip; of a disabled picture why it is disabled; empty for none
  int unused4 = 0;
  int enabled = 0;
  int bitmap = 0;
  int style = 0;  // 6: highlighted under the pointer

  static constexpr int commandBase = 0x90000;

  bool operator==(const RCII&) const = default;
};

class CImgDlg : public QDialog {
  Q_OBJECT

 public:
  CImgDlg(int templateId, QWidget* parent);

  void InsertCmdImage(const RCII& image, PictureLook look = PictureLook::rail);
  void InsertSubImage(const RCII& image, PictureLook look = PictureLook::card);

  void setVisible(bool visible) override;
  // How much larger than at 100 % the layout is drawn.
  [[nodiscard]] double Scale() const;

 protected:
  // Runs once, before the window is first shown.
  virtual bool OnInitDialog() { return true; }
  virtual void OnOK() { EndDialog(Accepted); }
  virtual void OnCancel() { EndDialog(Rejected); }
  virtual void OnHelpInfo() {}
  // The low 16 bits of the command of a picture that was clicked.
  virtual void OnCommand(int id) = 0;

  void EndDialog(int result) { QDialog::done(result); }
  // The size of the layout at 100 %, also the window's smallest.
  void SetLayoutSize(QSize size);
  // Shows one main picture as the current one.
  void SetCurrentCommand(int id);
  [[nodiscard]] PictureButton* ButtonOf(int id) const;

  // Where the layout's top left corner lies in the window.
  [[nodiscard]] QPointF Origin() const;

  void accept() override { OnOK(); }
  void reject() override { OnCancel(); }
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  PictureButton* Insert(const RCII& image, PictureLook look);
  void MoveFocus(const PictureButton& from, int key);
  [[nodiscard]] std::vector<PictureButton*> Buttons() const;

  std::vector<PictureButton*> mainButtons_;
  std::vector<PictureButton*> areaButtons_;
  QSize layoutSize_;
  bool initialised_ = false;
};

}  // namespace tz

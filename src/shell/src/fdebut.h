// FDébut, the start page: a borderless 417 x 435 window on the skin's
// background, seven animated picture buttons that open the tools (F3 to F9),
// one that opens the help (F1), and "show this page at startup".
#pragma once

#include <QDialog>
#include <array>

#include "cursor_handback.h"

class QCheckBox;
class QLabel;

namespace vt {

class VT;
class VTPictureButton;

class FDebut : public QDialog {
  Q_OBJECT

 public:
  explicit FDebut(VT& vt);

  // Buttons 0 to 6 open the windows of the start table; 7 is the help.
  VTPictureButton* btn(int i) const { return m_btn.at(static_cast<std::size_t>(i)); }
  VTPictureButton* btnImage(int i) const { return m_btnImage.at(static_cast<std::size_t>(i)); }
  QCheckBox* chkStartup() const { return m_chk; }

  void rendCurseurALActivation() { m_curseur.armer(); }
  void rendCurseurSiBesoin() { m_curseur.rendre(); }

  // Hides the page, shows window `i` (the help for 7) and closes.
  void choisit(int i);

  void done(int r) override;

 protected:
  void showEvent(QShowEvent* e) override;
  void paintEvent(QPaintEvent* e) override;
  void keyPressEvent(QKeyEvent* e) override;
  void mousePressEvent(QMouseEvent* e) override;
  void mouseMoveEvent(QMouseEvent* e) override;
  void mouseReleaseEvent(QMouseEvent* e) override;

 private:
  VT& m_vt;
  std::array<VTPictureButton*, 8> m_btn{};
  std::array<VTPictureButton*, 8> m_btnImage{};
  QCheckBox* m_chk;
  QLabel* m_échap;
  QPixmap m_fond;
  QPixmap m_logo;
  CurseurARendre m_curseur;
  QPoint m_prise;  // where the page was taken, when the window system cannot move it
  bool m_glisse = false;
};

}  // namespace vt

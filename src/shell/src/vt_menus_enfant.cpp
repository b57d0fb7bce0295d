// The menus of a child window in the main window's menu bar: a window with a
// menu bar of its own (the editor) shows its menus at the top while it is the
// active one, in front of the Window and Help menus, as a frame window does
// with its documents; its own bar hides meanwhile, so that each menu's key
// (Alt and a letter) belongs to one menu only.
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>

#include "shell/vt.h"

namespace vt {

void VT::menusDeLaFenêtreActive(QMdiSubWindow* active) {
  QMenuBar* propre = nullptr;
  if (active != nullptr) {
    if (const auto* f = dynamic_cast<const FenetreVT*>(active->widget())) propre = f->barreMenus();
  } else if (m_barreEmpruntée != nullptr && !m_mdi->subWindowList().isEmpty()) {
    // No window active for a moment (a dialog has the focus): nothing changes.
    return;
  }
  if (propre == m_barreEmpruntée) return;

  QMenuBar* barre = menuBar();
  for (QAction* a : barre->actions())
    barre->removeAction(a);
  if (m_barreEmpruntée != nullptr) m_barreEmpruntée->setVisible(true);
  m_barreEmpruntée = propre;

  if (propre != nullptr) {
    propre->setVisible(false);
    for (QAction* a : propre->actions())
      barre->addAction(a);
    barre->addMenu(m_mnu[1]);
    barre->addMenu(m_mnu[2]);
  } else {
    for (QMenu* m : m_mnu)
      barre->addMenu(m);
  }
}

}  // namespace vt

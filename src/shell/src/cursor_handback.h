// The wait cursor that a caller sets over the whole screen before a modal
// window, and that the window hands back when it is first shown.
#pragma once

#include <QApplication>

namespace vt {

class CurseurARendre {
 public:
  void armer() { m_armé = true; }
  // At the window's activation, and once more after it closed in case it never showed.
  void rendre() {
    if (!m_armé) return;
    m_armé = false;
    QApplication::restoreOverrideCursor();
  }

 private:
  bool m_armé = false;
};

}  // namespace vt

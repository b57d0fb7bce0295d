// FTabToolBar: one of the editor's toolbars torn off into a small window of
// its own. It shows the very buttons of the docked toolbar, so that both
// always agree: a button pressed in one is pressed in the other, and the
// cursor's note moves both. Closing the window docks the toolbar again.
#pragma once

#include <QWidget>

class QToolBar;

namespace vt {

class FTabToolBar : public QWidget {
  Q_OBJECT

 public:
  // `source` is the docked toolbar; `titre` the window's caption.
  FTabToolBar(QToolBar* source, const QString& titre, QWidget* parent);

  // The name of the toolbar it shows ("tbRythme", ...).
  QString FloatingToolbar() const;
  // Takes the docked toolbar's buttons again, after they were rebuilt.
  void tbUpdateToolbar();
  QToolBar* barre() const { return m_barre; }

 signals:
  // The window was closed: the toolbar goes back in its place.
  void fermee();

 protected:
  void closeEvent(QCloseEvent* e) override;

 private:
  QToolBar* m_source;
  QToolBar* m_barre;
};

}  // namespace vt

#include "ftab_toolbar.h"

#include <QCloseEvent>
#include <QToolBar>
#include <QVBoxLayout>

namespace vt {

FTabToolBar::FTabToolBar(QToolBar* source, const QString& titre, QWidget* parent)
    : QWidget(parent, Qt::Tool), m_source(source), m_barre(new QToolBar(this)) {
  setObjectName(QStringLiteral("FTabToolBar_") + source->objectName());
  setWindowTitle(titre);
  auto* pile = new QVBoxLayout(this);
  pile->setContentsMargins(2, 2, 2, 2);
  pile->addWidget(m_barre);
  m_barre->setObjectName(source->objectName());
  m_barre->setIconSize(source->iconSize());
  m_barre->setOrientation(source->orientation());
  tbUpdateToolbar();
}

QString FTabToolBar::FloatingToolbar() const {
  return m_source->objectName();
}

void FTabToolBar::tbUpdateToolbar() {
  for (QAction* a : m_barre->actions())
    m_barre->removeAction(a);
  // The same actions: their state is one.
  m_barre->addActions(m_source->actions());
  adjustSize();
}

void FTabToolBar::closeEvent(QCloseEvent* e) {
  e->accept();
  emit fermee();
}

}  // namespace vt

// The options' metronome page: a click that sounds or not, on which channel,
// with which notes.
#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QSpinBox>

#include "options_pages.h"
#include "shell/vt.h"

namespace vt {

namespace {
QSpinBox* note(QWidget* parent, const char* nom) {
  auto* ud = new QSpinBox(parent);
  ud->setObjectName(QString::fromUtf8(nom));
  ud->setRange(0, 127);
  return ud;
}
}  // namespace

PageMet::PageMet(VT& vt, QWidget* parent) : QWidget(parent), m_vt(vt) {
  setObjectName(QStringLiteral("KeyM\u00e9t"));
  optMétro = groupeOptions<2>(this, grpMétro, "optM\u00e9tro");
  chkMétronomeMIDICanal10 = new QCheckBox(this);
  chkMétronomeMIDICanal10->setObjectName(QStringLiteral("chkM\u00e9tronomeMIDICanal10"));
  udMétronomeMIDINote1 = note(this, "udM\u00e9tronomeMIDINote1");
  udMétronomeMIDINote2 = note(this, "udM\u00e9tronomeMIDINote2");
  m_labNote1 = new QLabel(this);
  m_labNote2 = new QLabel(this);
  m_labNote1->setBuddy(udMétronomeMIDINote1);
  m_labNote2->setBuddy(udMétronomeMIDINote2);

  auto* grille = new QGridLayout(this);
  grille->addWidget(optMétro[0], 0, 0, 1, 2);
  grille->addWidget(optMétro[1], 1, 0, 1, 2);
  grille->addWidget(chkMétronomeMIDICanal10, 2, 0, 1, 2);
  grille->addWidget(m_labNote1, 3, 0);
  grille->addWidget(udMétronomeMIDINote1, 3, 1);
  grille->addWidget(m_labNote2, 4, 0);
  grille->addWidget(udMétronomeMIDINote2, 4, 1);
  grille->setColumnStretch(2, 1);
  grille->setRowStretch(5, 1);
}

void PageMet::load_lang() {
  optMétro[0]->setText(m_vt.loadString(1154));
  optMétro[1]->setText(m_vt.loadString(1155));
  chkMétronomeMIDICanal10->setText(m_vt.loadString(1156));
  m_labNote1->setText(m_vt.loadString(1157));
  m_labNote2->setText(m_vt.loadString(1158));
}

}  // namespace vt

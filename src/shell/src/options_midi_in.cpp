// The options' MIDI input page: the device a guitar controller or a keyboard
// comes in on, and the channel of its first string.
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>

#include "options_pages.h"
#include "shell/vt.h"

namespace vt {

PageMidiIn::PageMidiIn(VT& vt, QWidget* parent) : QWidget(parent), m_vt(vt) {
  setObjectName(QStringLiteral("KeyMidiIn"));
  cmbMIDIINDevice = new QComboBox(this);
  cmbMIDIINDevice->setObjectName(QStringLiteral("cmbMIDIINDevice"));
  cmbMIDIINBasicChannel = new QComboBox(this);
  cmbMIDIINBasicChannel->setObjectName(QStringLiteral("cmbMIDIINBasicChannel"));
  for (int c = 1; c <= 16; ++c)
    cmbMIDIINBasicChannel->addItem(QString::number(c));
  m_labDevice = new QLabel(this);
  m_labChannel = new QLabel(this);
  m_labDevice->setBuddy(cmbMIDIINDevice);
  m_labChannel->setBuddy(cmbMIDIINBasicChannel);

  auto* grille = new QGridLayout(this);
  grille->addWidget(m_labDevice, 0, 0);
  grille->addWidget(cmbMIDIINDevice, 0, 1);
  grille->addWidget(m_labChannel, 1, 0);
  grille->addWidget(cmbMIDIINBasicChannel, 1, 1, Qt::AlignLeft);
  grille->setColumnStretch(1, 1);
  grille->setRowStretch(2, 1);
}

void PageMidiIn::load_lang() {
  m_labDevice->setText(m_vt.loadString(1166));
  m_labChannel->setText(m_vt.loadString(1167));
  if (m_aucune) cmbMIDIINDevice->setItemText(0, m_vt.loadString(1178));
}

void PageMidiIn::remplitEntrées() {
  const QStringList entrées = m_vt.son().entreesMidi();
  m_aucune = entrées.isEmpty();
  cmbMIDIINDevice->clear();
  cmbMIDIINDevice->addItems(m_aucune ? QStringList{m_vt.loadString(1178)} : entrées);
  cmbMIDIINDevice->setEnabled(!m_aucune);
}

}  // namespace vt

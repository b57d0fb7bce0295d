#include "ftab_tempo.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QSpinBox>
#include <QVBoxLayout>

#include "commun.h"
#include "document/tablature.h"
#include "textes_dialogue.h"

namespace vt {

int tempoEnVigueur(const CVantoroTablature& doc, int mesure, int x) {
  int tempo = doc.tempo;
  for (int m = 1; m <= mesure && m <= doc.getMesureLast(); ++m)
    for (int n = 1; n <= doc.getMesureTempoLast(m); ++n)
      if (m < mesure || doc.getMesureTempoX(m, n) <= x) tempo = doc.getMesureTempoContenu(m, n);
  return tempo;
}

FTabTempo::FTabTempo(const Textes& t, CVantoroTablature& doc, int mesure, int x, QWidget* parent)
    : QDialog(parent), m_t(t), m_doc(doc), m_mesure(mesure), m_x(x) {
  setObjectName(QStringLiteral("FTabTempo"));
  setWindowTitle(t.loadString(533));
  auto* colonne = new QVBoxLayout(this);
  auto* grille = new QFormLayout;
  grille->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
  m_tempo = new QSpinBox(this);
  m_tempo->setObjectName(QStringLiteral("udTempo"));
  m_tempo->setRange(1, 255);
  m_tempo->setValue(tempoEnVigueur(doc, mesure, x));
  auto* libellé = new QLabel(t.loadString(534), this);
  libellé->setBuddy(m_tempo);
  grille->addRow(libellé, m_tempo);
  colonne->addLayout(grille);

  // Only a change that stands at this very tick can be removed.
  m_supprimer = new QCheckBox(t.loadString(536), this);
  m_supprimer->setObjectName(QStringLiteral("chkSupprimer"));
  m_supprimer->setVisible(doc.searchMesureTempo(mesure, x) != 0);
  connect(m_supprimer, &QCheckBox::toggled, m_tempo, &QWidget::setDisabled);
  colonne->addWidget(m_supprimer);

  m_erreur = ligneErreur(this);
  colonne->addWidget(m_erreur);
  colonne->addWidget(boutonsOkAnnuler(this, t));
  colonne->setSizeConstraint(QLayout::SetFixedSize);
}

bool FTabTempo::editer(QWidget* parent, const Textes& t, CVantoroTablature& doc, int mesure,
                       int x) {
  FTabTempo d(t, doc, mesure, x, parent);
  d.exec();
  return d.modifie();
}

void FTabTempo::accept() {
  const int n = m_doc.searchMesureTempo(m_mesure, m_x);
  if (m_supprimer->isChecked()) {
    if (n != 0) {
      m_doc.storeUndo(true);
      m_doc.deleteTempo(m_mesure, n);
      m_modifie = true;
    }
  } else {
    const int tempo = m_tempo->value();
    if (n == 0 && m_doc.getMesureTempoLast(m_mesure) >= kMaxEntrees) {
      montreErreur(m_erreur, m_t.loadString(579), m_tempo);
      return;
    }
    if (n == 0 || m_doc.getMesureTempoContenu(m_mesure, n) != tempo) {
      m_doc.storeUndo(true);
      m_modifie = m_doc.setMesureTempo(m_mesure, m_x, static_cast<byt>(tempo));
    }
  }
  if (m_modifie) m_doc.modifi = kVrai;
  QDialog::accept();
}

}  // namespace vt

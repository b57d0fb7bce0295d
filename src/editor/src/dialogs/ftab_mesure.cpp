#include "ftab_mesure.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QSpinBox>
#include <QVBoxLayout>

#include "commun.h"
#include "document/tablature.h"

namespace vt {

namespace {

// A repeat that is closed plays twice unless the bar says otherwise.
constexpr int kPassagesParDefaut = 2;

}  // namespace

FTabMesure::FTabMesure(const Textes& t, CVantoroTablature& doc, int mesure, QWidget* parent)
    : QDialog(parent), m_doc(doc), m_mesure(mesure) {
  setObjectName(QStringLiteral("FTabMesure"));
  setWindowTitle(t.loadString(537));
  auto* colonne = new QVBoxLayout(this);
  auto* grille = new QFormLayout;
  grille->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
  colonne->addLayout(grille);

  // Left: plain, double, start of repeat. Right: plain, double, end of
  // repeat, final bar line. The index of an entry is the stored type.
  m_gauche = new QComboBox(this);
  m_gauche->setObjectName(QStringLiteral("cmbGauche"));
  m_gauche->addItems({t.loadString(540), t.loadString(541), t.loadString(542)});
  m_droite = new QComboBox(this);
  m_droite->setObjectName(QStringLiteral("cmbDroite"));
  m_droite->addItems({t.loadString(540), t.loadString(541), t.loadString(543), t.loadString(544)});
  m_passages = new QSpinBox(this);
  m_passages->setObjectName(QStringLiteral("udPassages"));
  m_passages->setRange(1, 255);

  // A type this dialog does not offer shows as a plain line, and stays
  // stored as it is unless the user picks another.
  const int gauche = doc.getMesureLoopGaucheType(mesure);
  const int droite = doc.getMesureLoopDroiteType(mesure);
  m_gaucheInitiale = gauche < m_gauche->count() ? gauche : 0;
  m_droiteInitiale = droite < m_droite->count() ? droite : 0;
  const int passages = doc.getMesureLoopDroiteData(mesure);
  m_passagesInitial = droite == barre::kRepetition && passages >= 1 ? passages : kPassagesParDefaut;
  m_gauche->setCurrentIndex(m_gaucheInitiale);
  m_droite->setCurrentIndex(m_droiteInitiale);
  m_passages->setValue(m_passagesInitial);
  const auto suit = [this](int type) { m_passages->setEnabled(type == barre::kRepetition); };
  suit(m_droiteInitiale);
  connect(m_droite, &QComboBox::currentIndexChanged, this, suit);

  const auto ligne = [&](int id, QWidget* champ) {
    auto* l = new QLabel(t.loadString(id), this);
    l->setBuddy(champ);
    grille->addRow(l, champ);
  };
  ligne(538, m_gauche);
  ligne(539, m_droite);
  ligne(545, m_passages);
  colonne->addWidget(boutonsOkAnnuler(this, t));
  colonne->setSizeConstraint(QLayout::SetFixedSize);
}

bool FTabMesure::editer(QWidget* parent, const Textes& t, CVantoroTablature& doc, int mesure) {
  FTabMesure d(t, doc, mesure, parent);
  d.exec();
  return d.modifie();
}

void FTabMesure::accept() {
  const int gauche = m_gauche->currentIndex();
  const int droite = m_droite->currentIndex();
  const bool gaucheChange = gauche != m_gaucheInitiale;
  const bool droiteChange = droite != m_droiteInitiale;
  const bool passagesChange =
      droite == barre::kRepetition && m_passages->value() != m_passagesInitial;
  if (gaucheChange || droiteChange || passagesChange) {
    m_doc.storeUndo(true);
    if (gaucheChange) m_doc.setMesureLoopGaucheType(m_mesure, static_cast<byt>(gauche));
    if (droiteChange) m_doc.setMesureLoopDroiteType(m_mesure, static_cast<byt>(droite));
    // The number of plays belongs to a repeat's end; every other line keeps 0.
    if (droiteChange || passagesChange)
      m_doc.setMesureLoopDroiteData(
          m_mesure, static_cast<byt>(droite == barre::kRepetition ? m_passages->value() : 0));
    m_doc.modifi = kVrai;
    m_modifie = true;
  }
  QDialog::accept();
}

}  // namespace vt

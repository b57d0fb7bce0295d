#include "ftab_mesure_edit.h"

#include <QButtonGroup>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QSpinBox>
#include <QVBoxLayout>
#include <algorithm>

#include "commun.h"
#include "document/tablature.h"

namespace vt {

namespace {

bool modeValide(int mode) {
  return mode >= FTabMesureEdit::kInserer && mode <= FTabMesureEdit::kSupprimer;
}

QString titre(const Textes& t, int mode) {
  switch (mode) {
    case FTabMesureEdit::kInserer:
      return t.loadString(1415);
    case FTabMesureEdit::kCopier:
      return t.loadString(1416);
    case FTabMesureEdit::kCouper:
      return t.loadString(1417);
    case FTabMesureEdit::kSupprimer:
      return t.loadString(1421);
    default:
      return {};
  }
}

}  // namespace

FTabMesureEdit::FTabMesureEdit(const Textes& t, const CVantoroTablature& doc, int mode,
                               QWidget* parent)
    : QDialog(parent), m_doc(doc), m_mode(mode) {
  setObjectName(QStringLiteral("FTabMesureEdit"));
  setWindowTitle(titre(t, mode));
  auto* colonne = new QVBoxLayout(this);

  auto* cadreMesures = new QGroupBox(t.loadString(1410), this);
  auto* grille = new QFormLayout(cadreMesures);
  grille->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
  const int dernière = std::max(1, doc.getMesureLast());
  m_de = new QSpinBox(this);
  m_de->setObjectName(QStringLiteral("udMesureFrom"));
  m_de->setRange(1, dernière);
  m_de->setValue(std::clamp<int>(doc.CurseurMesure(), 1, dernière));
  m_nombre = new QSpinBox(this);
  m_nombre->setObjectName(QStringLiteral("udMesureNumber"));
  m_nombre->setRange(1, kMaxInsertion);
  m_nombre->setValue(1);
  const auto ligne = [&](int id, QWidget* champ) {
    auto* l = new QLabel(t.loadString(id), this);
    l->setBuddy(champ);
    grille->addRow(l, champ);
  };
  ligne(1412, m_de);
  ligne(1413, m_nombre);
  colonne->addWidget(cadreMesures);

  auto* cadrePistes = new QGroupBox(t.loadString(1414), this);
  auto* choix = new QVBoxLayout(cadrePistes);
  m_pisteCourante = new QRadioButton(t.loadString(1419), this);
  m_pisteCourante->setObjectName(QStringLiteral("optPiste_0"));
  m_toutesPistes = new QRadioButton(t.loadString(1420), this);
  m_toutesPistes->setObjectName(QStringLiteral("optPiste_1"));
  auto* groupe = new QButtonGroup(this);
  groupe->addButton(m_pisteCourante);
  groupe->addButton(m_toutesPistes);
  m_pisteCourante->setChecked(true);
  choix->addWidget(m_pisteCourante);
  choix->addWidget(m_toutesPistes);
  // Bars are copied from the current track only.
  cadrePistes->setEnabled(mode != kCopier);
  colonne->addWidget(cadrePistes);

  colonne->addWidget(boutonsOkAnnuler(this, t));
  colonne->setSizeConstraint(QLayout::SetFixedSize);

  // Copy, cut and delete reach no further than the last bar.
  if (mode != kInserer) {
    suitPremiere(m_de->value());
    connect(m_de, &QSpinBox::valueChanged, this, &FTabMesureEdit::suitPremiere);
  }
}

void FTabMesureEdit::suitPremiere(int premiere) {
  m_nombre->setMaximum(std::max(1, m_doc.getMesureLast() - premiere + 1));
}

PositionsMesures FTabMesureEdit::positions() const {
  PositionsMesures p;
  p.première = m_de->value();
  p.nombre = m_nombre->value();
  p.toutesPistes = m_mode != kCopier && m_toutesPistes->isChecked();
  return p;
}

bool FTabMesureEdit::getMesurePositions(QWidget* parent, const Textes& t,
                                        const CVantoroTablature& doc, int mode,
                                        PositionsMesures& out) {
  if (!modeValide(mode)) return false;
  FTabMesureEdit d(t, doc, mode, parent);
  if (d.exec() != QDialog::Accepted) return false;
  out = d.positions();
  return true;
}

}  // namespace vt

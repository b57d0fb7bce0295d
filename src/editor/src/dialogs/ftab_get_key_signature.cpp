#include "ftab_get_key_signature.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFontMetrics>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>
#include <QSpinBox>
#include <QVBoxLayout>
#include <algorithm>

#include "commun.h"
#include "document/tablature.h"
#include "noms_tonalites.h"

namespace vt {

namespace {

// Key bytes: 8 plus the accidentals, 64 more for a minor key.
constexpr int kBaseMajeur = 8;
constexpr int kBaseMineur = 72;

}  // namespace

FTabGetKeySignature::FTabGetKeySignature(const Textes& t, CVantoroTablature& doc, int mesure,
                                         QWidget* parent)
    : QDialog(parent), m_t(t), m_doc(doc) {
  setObjectName(QStringLiteral("FTabGetKeySignature"));
  setWindowTitle(t.loadString(524));
  auto* colonne = new QVBoxLayout(this);
  auto* grille = new QFormLayout;
  grille->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
  colonne->addLayout(grille);

  m_majeur = new QRadioButton(t.loadString(526), this);
  m_majeur->setObjectName(QStringLiteral("optMajeur"));
  m_mineur = new QRadioButton(t.loadString(527), this);
  m_mineur->setObjectName(QStringLiteral("optMineur"));
  auto* groupe = new QButtonGroup(this);
  groupe->addButton(m_majeur);
  groupe->addButton(m_mineur);
  auto* modes = new QHBoxLayout;
  modes->addWidget(m_majeur);
  modes->addWidget(m_mineur);
  modes->addStretch();
  grille->addRow(QString(), modes);

  // One entry per count of accidentals, seven flats first; the entry's data
  // is the count.
  m_alterations = new QComboBox(this);
  m_alterations->setObjectName(QStringLiteral("cmbAlterations"));
  for (int a = -kAlterationsMax; a <= kAlterationsMax; ++a)
    m_alterations->addItem(QString(), a);
  auto* libellé = new QLabel(t.loadString(528), this);
  libellé->setBuddy(m_alterations);
  grille->addRow(libellé, m_alterations);
  m_etendue.emplace(t, doc, std::clamp(mesure, 1, doc.getMesureLast()), this, grille);
  colonne->addWidget(boutonsOkAnnuler(this, t));

  amorce();
  connect(m_majeur, &QRadioButton::toggled, this, &FTabGetKeySignature::nomme);
  connect(m_etendue->udMesure(), &QSpinBox::valueChanged, this, &FTabGetKeySignature::amorce);
  // Room for the longest name of both modes, so that the dialog keeps its size.
  int largeur = 0;
  const QFontMetrics fm(m_alterations->font());
  for (bool majeur : {true, false})
    for (int a = -kAlterationsMax; a <= kAlterationsMax; ++a)
      largeur = std::max(largeur, fm.horizontalAdvance(nomTonalite(t, a, majeur) + " (" +
                                                       nomAlterations(t, a) + ")"));
  m_alterations->setMinimumWidth(largeur + 40);
  colonne->setSizeConstraint(QLayout::SetFixedSize);
}

bool FTabGetKeySignature::editer(QWidget* parent, const Textes& t, CVantoroTablature& doc,
                                 int mesure) {
  FTabGetKeySignature d(t, doc, mesure, parent);
  d.exec();
  return d.modifie();
}

void FTabGetKeySignature::amorce() {
  const int m = m_etendue->premiere();
  const bool majeur = m_doc.getMesureTonalitéMode(m) != kFaux;
  const int a =
      std::clamp(m_doc.getMesureTonalitéAltérations(m), -kAlterationsMax, kAlterationsMax);
  (majeur ? m_majeur : m_mineur)->setChecked(true);
  nomme();
  m_alterations->setCurrentIndex(m_alterations->findData(a));
}

void FTabGetKeySignature::nomme() {
  const bool majeur = m_majeur->isChecked();
  for (int i = 0; i < m_alterations->count(); ++i) {
    const int a = m_alterations->itemData(i).toInt();
    m_alterations->setItemText(
        i, QStringLiteral("%1 (%2)").arg(nomTonalite(m_t, a, majeur), nomAlterations(m_t, a)));
  }
}

int FTabGetKeySignature::tonalite() const {
  return (m_majeur->isChecked() ? kBaseMajeur : kBaseMineur) + m_alterations->currentData().toInt();
}

void FTabGetKeySignature::accept() {
  const CVantoroTablature& doc = m_doc;
  const int premiere = m_etendue->premiere();
  const int fin = m_etendue->derniere(doc, [&doc](int m) { return doc.getMesureTonalité(m); });
  const int t = tonalite();
  const int alterations = m_alterations->currentData().toInt();
  const vbool majeur = toVbool(m_majeur->isChecked());
  for (int m = premiere; m <= fin; ++m) {
    if (m_doc.getMesureTonalité(m) == t) continue;
    if (!m_modifie) m_doc.storeUndo(true);
    m_doc.setMesureTonalitéDétails(m, alterations, majeur);
    m_modifie = true;
  }
  if (m_modifie) m_doc.modifi = kVrai;
  QDialog::accept();
}

}  // namespace vt

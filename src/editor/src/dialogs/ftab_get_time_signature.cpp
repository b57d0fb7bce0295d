#include "ftab_get_time_signature.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QRadioButton>
#include <QSpinBox>
#include <QVBoxLayout>
#include <algorithm>

#include "commun.h"
#include "document/tablature.h"

namespace vt {

namespace {

// The note values a beat can have; the document takes no others.
constexpr int kUnites[] = {1, 2, 4, 8, 16, 32, 64};
constexpr int kTempsMax = 32;

int compteAuDela(const auto& liste, int largeur) {
  int n = 0;
  for (const auto& e : liste)
    if (e.intX >= largeur) ++n;
  return n;
}

}  // namespace

Coupe coupePour(const CVantoroTablature& doc, int premiere, int derniere, int largeur) {
  Coupe c;
  for (int m = premiere; m <= derniere; ++m) {
    if (!doc.hasMesure(m)) continue;
    c.tempos += compteAuDela(doc.mesure(m).tabTempos, largeur);
    for (int p = 1; p <= doc.getPisteLast(); ++p) {
      const tPisteMesure* pm = doc.pisteMesure(p, m);
      if (pm == nullptr) continue;
      for (const auto& corde : pm->tabCordes)
        c.notes += compteAuDela(corde, largeur);
      c.accords += compteAuDela(pm->tabAccords, largeur);
      c.textes += compteAuDela(pm->tabTextesUp, largeur) + compteAuDela(pm->tabTextesDn, largeur);
    }
  }
  return c;
}

FTabGetTimeSignature::FTabGetTimeSignature(const Textes& t, CVantoroTablature& doc, int mesure,
                                           QWidget* parent)
    : QDialog(parent), m_t(t), m_doc(doc) {
  setObjectName(QStringLiteral("FTabGetTimeSignature"));
  setWindowTitle(t.loadString(530));
  auto* colonne = new QVBoxLayout(this);
  auto* grille = new QFormLayout;
  grille->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
  colonne->addLayout(grille);

  m_haut = new QSpinBox(this);
  m_haut->setObjectName(QStringLiteral("udHaut"));
  m_haut->setRange(1, kTempsMax);
  m_bas = new QComboBox(this);
  m_bas->setObjectName(QStringLiteral("cmbBas"));
  for (int u : kUnites)
    m_bas->addItem(QString::number(u), u);
  auto* libelléHaut = new QLabel(t.loadString(531), this);
  libelléHaut->setBuddy(m_haut);
  auto* libelléBas = new QLabel(t.loadString(532), this);
  libelléBas->setBuddy(m_bas);
  grille->addRow(libelléHaut, m_haut);
  grille->addRow(libelléBas, m_bas);
  m_etendue.emplace(t, doc, std::clamp(mesure, 1, doc.getMesureLast()), this, grille);

  m_avertissement = new QLabel(this);
  m_avertissement->setObjectName(QStringLiteral("lblCoupe"));
  m_avertissement->setWordWrap(true);
  m_avertissement->setStyleSheet(QStringLiteral("color: #a05000;"));
  colonne->addWidget(m_avertissement);
  colonne->addWidget(boutonsOkAnnuler(this, t));

  amorce();
  connect(m_etendue->udMesure(), &QSpinBox::valueChanged, this, [this] {
    amorce();
    actualise();
  });
  connect(m_haut, &QSpinBox::valueChanged, this, &FTabGetTimeSignature::actualise);
  connect(m_bas, &QComboBox::currentIndexChanged, this, &FTabGetTimeSignature::actualise);
  connect(m_etendue->optSuite(), &QRadioButton::toggled, this, &FTabGetTimeSignature::actualise);
  actualise();
  // The warning wraps within the width of the fields; the dialog grows down.
  m_avertissement->setMinimumWidth(360);
  colonne->setSizeConstraint(QLayout::SetFixedSize);
}

bool FTabGetTimeSignature::editer(QWidget* parent, const Textes& t, CVantoroTablature& doc,
                                  int mesure) {
  FTabGetTimeSignature d(t, doc, mesure, parent);
  d.exec();
  return d.modifie();
}

void FTabGetTimeSignature::amorce() {
  const int m = m_etendue->premiere();
  m_haut->setValue(m_doc.getMesureSignatureUp(m));
  const int i = m_bas->findData(m_doc.getMesureSignatureDn(m));
  m_bas->setCurrentIndex(i >= 0 ? i : m_bas->findData(4));
}

int FTabGetTimeSignature::haut() const {
  return m_haut->value();
}

int FTabGetTimeSignature::bas() const {
  return m_bas->currentData().toInt();
}

int FTabGetTimeSignature::derniere() const {
  // The run is the bars that share the first one's present signature.
  const CVantoroTablature& doc = m_doc;
  return m_etendue->derniere(doc, [&doc](int m) {
    return doc.getMesureSignatureUp(m) * 256 + doc.getMesureSignatureDn(m);
  });
}

void FTabGetTimeSignature::actualise() {
  const Coupe c = coupePour(m_doc, m_etendue->premiere(), derniere(), haut() * kTicksRonde / bas());
  m_avertissement->setText(
      c.total() == 0 ? QString()
                     : m_t.loadString(578).arg(c.notes).arg(c.accords).arg(c.textes).arg(c.tempos));
  m_avertissement->setVisible(c.total() != 0);
}

void FTabGetTimeSignature::accept() {
  const int premiere = m_etendue->premiere();
  const int fin = derniere();
  for (int m = premiere; m <= fin; ++m) {
    if (m_doc.getMesureSignatureUp(m) == haut() && m_doc.getMesureSignatureDn(m) == bas()) continue;
    if (!m_modifie) m_doc.storeUndo(true);
    m_modifie = m_doc.setMesureSignature(m, haut(), bas()) || m_modifie;
  }
  if (m_modifie) {
    m_doc.modifi = kVrai;
    // The cursor stays inside its bar.
    const int c = m_doc.CurseurMesure();
    if (c >= premiere && c <= fin && m_doc.CurseurX() >= m_doc.getMesureLargeur(c))
      m_doc.setCurseurX(0);
  }
  QDialog::accept();
}

}  // namespace vt

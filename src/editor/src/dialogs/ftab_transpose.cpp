#include "ftab_transpose.h"

#include <QButtonGroup>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QVBoxLayout>
#include <algorithm>

#include "commun.h"
#include "document/tablature.h"

namespace vt {

namespace {

constexpr int kDemiTonsMax = 24;
// 255 is the blank note: the highest fret a note can have is one below.
constexpr int kFretteMax = kCaseVide - 1;

}  // namespace

MesuresSelection mesuresSelection(const CVantoroTablature& doc) {
  const int a = doc.intSelStartMesure;
  const int b = doc.intSelStopMesure;
  if (a < 1 || b < 1) return {};
  // A selection dragged to the left starts after it stops.
  const int last = doc.getMesureLast();
  return {std::min(std::min(a, b), last), std::min(std::max(a, b), last)};
}

FTabTranspose::FTabTranspose(const Textes& t, CVantoroTablature& doc, int piste,
                             const tGuitare& guitare, QWidget* parent)
    : QDialog(parent),
      m_t(t),
      m_doc(doc),
      m_piste(piste),
      m_guitare(guitare),
      m_selection(mesuresSelection(doc)) {
  setObjectName(QStringLiteral("FTabTranspose"));
  setWindowTitle(t.loadString(1400));
  auto* colonne = new QVBoxLayout(this);
  auto* grille = new QFormLayout;
  grille->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
  colonne->addLayout(grille);

  const auto champ = [this](const char* nom, int min, int max, int valeur) {
    auto* s = new QSpinBox(this);
    s->setObjectName(QString::fromLatin1(nom));
    s->setRange(min, max);
    s->setValue(valeur);
    return s;
  };
  // No amount is chosen for the user: OK waits for one.
  m_demiTons = champ("udDemiTons", -kDemiTonsMax, kDemiTonsMax, 0);
  m_min = champ("udMin", 0, kFretteMax, 0);
  m_max = champ("udMax", 0, kFretteMax, std::clamp(doc.getGuitareNbrCases(piste), 1, kFretteMax));
  const auto ligne = [&](int id, QWidget* w) {
    auto* l = new QLabel(t.loadString(id), this);
    l->setBuddy(w);
    grille->addRow(l, w);
  };
  ligne(1401, m_demiTons);
  ligne(1402, m_min);
  ligne(1403, m_max);

  auto* mesures = new QGroupBox(t.loadString(1405), this);
  auto* choix = new QVBoxLayout(mesures);
  m_toute = new QRadioButton(t.loadString(1406), mesures);
  m_toute->setObjectName(QStringLiteral("optPiste"));
  m_sel = new QRadioButton(t.loadString(1407), mesures);
  m_sel->setObjectName(QStringLiteral("optSelection"));
  auto* groupe = new QButtonGroup(this);
  groupe->addButton(m_toute);
  groupe->addButton(m_sel);
  choix->addWidget(m_toute);
  choix->addWidget(m_sel);
  m_sel->setEnabled(m_selection.existe());
  // A selection over more than one cell was made to be worked on; a click
  // alone selects the cursor's cell, which says nothing of the bars wanted.
  const bool étendue = m_selection.existe() && (doc.intSelStartMesure != doc.intSelStopMesure ||
                                                doc.intSelStartX != doc.intSelStopX ||
                                                doc.bytSelStartCorde != doc.bytSelStopCorde);
  (étendue ? m_sel : m_toute)->setChecked(true);
  colonne->addWidget(mesures);

  auto* note = new QLabel(t.loadString(1409), this);
  note->setWordWrap(true);
  colonne->addWidget(note);

  m_erreur = ligneErreur(this);
  colonne->addWidget(m_erreur);
  QDialogButtonBox* boutons = boutonsOkAnnuler(this, t);
  m_ok = boutons->findChild<QPushButton*>(QStringLiteral("btnOk"));
  m_ok->setText(t.loadString(1408));
  colonne->addWidget(boutons);
  const auto suit = [this](int v) { m_ok->setEnabled(v != 0); };
  suit(m_demiTons->value());
  connect(m_demiTons, &QSpinBox::valueChanged, this, suit);
  note->setMinimumWidth(300);
  colonne->setSizeConstraint(QLayout::SetFixedSize);
}

bool FTabTranspose::editer(QWidget* parent, const Textes& t, CVantoroTablature& doc, int piste,
                           const tGuitare& guitare) {
  FTabTranspose d(t, doc, piste, guitare, parent);
  d.exec();
  return d.modifie();
}

void FTabTranspose::accept() {
  const int demiTons = m_demiTons->value();
  if (demiTons == 0) return;
  if (!m_doc.hasPiste(m_piste)) {
    QDialog::reject();
    return;
  }
  if (m_min->value() >= m_max->value()) {
    montreErreur(m_erreur, m_t.loadString(1404), m_min);
    return;
  }
  const bool sel = m_sel->isChecked() && m_selection.existe();
  const int premiere = sel ? m_selection.premiere : 1;
  const int derniere = sel ? m_selection.derniere : m_doc.getMesureLast();
  // The snapshot is taken only once the order is accepted: a refused one
  // leaves nothing to undo.
  const CVantoroTablature avant = m_doc;
  storeUndoPiste(m_doc, m_piste);
  m_doc.transpose(m_piste, demiTons, m_max->value(), m_min->value(), premiere, derniere, m_guitare);
  m_modifie = !(m_doc.piste(m_piste) == avant.piste(m_piste));
  if (m_modifie)
    m_doc.modifi = kVrai;
  else
    m_doc = avant;  // nothing moved: no undo step for it
  QDialog::accept();
}

}  // namespace vt

#include "ftab_accord.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>
#include <algorithm>

#include "commun.h"
#include "document/tablature.h"
#include "pic_accord.h"
#include "texte_document.h"

namespace vt {

namespace {

const QSize kVignette(64, 84);
// The diagram can show frets up to the highest a neck has, and at least 24.
constexpr int kCasesMin = 24;

Diagramme lireAccord(const CVantoroTablature& doc, int p, int m, int n) {
  Diagramme d = Diagramme::vide(doc.getGuitareNbrCordes(p));
  d.nom = depuisDocument(doc.getMesureAccordNom(p, m, n));
  for (int c = 1; c <= d.nbrCordes; ++c)
    d.cases[static_cast<std::size_t>(c)] = doc.getMesureAccordCorde(p, m, n, c);
  return d;
}

}  // namespace

FTabAccord::FTabAccord(const Textes& t, CVantoroTablature& doc, int piste, int mesure, int x,
                       QWidget* parent, SourceDictionnaire dictionnaire)
    : QDialog(parent),
      m_t(t),
      m_doc(doc),
      m_piste(piste),
      m_mesure(mesure),
      m_x(x),
      m_dictionnaire(std::move(dictionnaire)) {
  setObjectName(QStringLiteral("FTabAccord"));
  setWindowTitle(t.loadString(560));
  const int nbrCordes = doc.getGuitareNbrCordes(piste);

  auto* grille = new QGridLayout(this);
  auto* gauche = new QVBoxLayout;
  m_pic = new PicAccord(this);
  gauche->addWidget(m_pic, 1);
  auto* champs = new QFormLayout;
  champs->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
  m_premiere = new QSpinBox(this);
  m_premiere->setObjectName(QStringLiteral("udPos"));
  m_premiere->setRange(1, std::max(kCasesMin, doc.getGuitareNbrCases(piste)) - kRangsDiagramme + 1);
  auto* libelléPremière = new QLabel(t.loadString(565), this);
  libelléPremière->setBuddy(m_premiere);
  champs->addRow(libelléPremière, m_premiere);
  m_nom = new QLineEdit(this);
  m_nom->setObjectName(QStringLiteral("txtNom"));
  m_nom->setMaxLength(kMaxTexte);
  m_libelleNom = new QLabel(t.loadString(561), this);
  m_libelleNom->setBuddy(m_nom);
  champs->addRow(m_libelleNom, m_nom);
  gauche->addLayout(champs);
  // The fingering the chord dictionary shows, when it shows one.
  auto* duDico = new QPushButton(t.loadString(120), this);
  duDico->setObjectName(QStringLiteral("btnDictionnaire"));
  duDico->setToolTip(t.loadString(121));
  duDico->setAutoDefault(false);
  Diagramme essai = Diagramme::vide(nbrCordes);
  duDico->setEnabled(m_dictionnaire && m_dictionnaire(essai));
  gauche->addWidget(duDico);
  auto* aide = new QLabel(t.loadString(569), this);
  aide->setWordWrap(true);
  gauche->addWidget(aide);
  grille->addLayout(gauche, 0, 0);

  auto* droite = new QVBoxLayout;
  m_lst = new QListWidget(this);
  m_lst->setObjectName(QStringLiteral("lstChord"));
  m_lst->setViewMode(QListView::IconMode);
  m_lst->setIconSize(kVignette);
  m_lst->setMovement(QListView::Static);
  m_lst->setResizeMode(QListView::Adjust);
  m_lst->setSpacing(4);
  m_lst->setMinimumWidth(3 * (kVignette.width() + 12) + 24);
  auto* libelléListe = new QLabel(t.loadString(568), this);
  libelléListe->setBuddy(m_lst);
  droite->addWidget(libelléListe);
  droite->addWidget(m_lst, 1);
  auto* boutonsListe = new QHBoxLayout;
  auto* ajouter = new QPushButton(t.loadString(562), this);
  ajouter->setObjectName(QStringLiteral("btnAdd"));
  ajouter->setAutoDefault(false);
  m_retirer = new QPushButton(t.loadString(563), this);
  m_retirer->setObjectName(QStringLiteral("btnSupprimer"));
  m_retirer->setAutoDefault(false);
  boutonsListe->addWidget(ajouter);
  boutonsListe->addWidget(m_retirer);
  droite->addLayout(boutonsListe);
  grille->addLayout(droite, 0, 1);

  m_erreur = ligneErreur(this);
  grille->addWidget(m_erreur, 1, 0, 1, 2);
  auto* bas = new QHBoxLayout;
  m_effacer = new QPushButton(t.loadString(564), this);
  m_effacer->setObjectName(QStringLiteral("btnDelete"));
  m_effacer->setAutoDefault(false);
  bas->addWidget(m_effacer);
  bas->addStretch();
  bas->addWidget(boutonsOkAnnuler(this, t));
  grille->addLayout(bas, 2, 0, 1, 2);
  grille->setColumnStretch(1, 1);

  // Every diagram of the track, once each, in the order of the piece.
  for (int m = 1; m <= doc.getMesureLast(); ++m)
    for (int n = 1; n <= doc.getMesureAccordLast(piste, m); ++n)
      ajoute(lireAccord(doc, piste, m, n), false);

  const int ici = doc.searchMesureAccord(piste, mesure, x);
  m_courant = ici != 0 ? lireAccord(doc, piste, mesure, ici) : Diagramme::vide(nbrCordes);
  m_effacer->setEnabled(ici != 0);
  m_nom->setText(m_courant.nom);
  m_premiere->setValue(m_courant.premiereCaseAffichee());
  m_retirer->setEnabled(false);

  connect(m_pic, &PicAccord::caseCliquee, this, &FTabAccord::clic);
  connect(m_premiere, &QSpinBox::valueChanged, this, &FTabAccord::redessine);
  connect(m_nom, &QLineEdit::textEdited, this, [this](const QString& nom) { m_courant.nom = nom; });
  connect(ajouter, &QPushButton::clicked, this, [this] { ajoute(m_courant, true); });
  connect(m_retirer, &QPushButton::clicked, this, &FTabAccord::retire);
  connect(duDico, &QPushButton::clicked, this, &FTabAccord::duDictionnaire);
  connect(m_effacer, &QPushButton::clicked, this, &FTabAccord::efface);
  connect(m_lst, &QListWidget::currentRowChanged, this, &FTabAccord::charge);
  redessine();
}

bool FTabAccord::getAccord(QWidget* parent, const Textes& t, CVantoroTablature& doc, int piste,
                           int mesure, int x, SourceDictionnaire dictionnaire) {
  FTabAccord d(t, doc, piste, mesure, x, parent, std::move(dictionnaire));
  d.exec();
  return d.modifie();
}

void FTabAccord::redessine() {
  m_pic->setDiagramme(m_courant, m_premiere->value());
}

void FTabAccord::clic(int corde, int rang) {
  int& f = m_courant.cases[static_cast<std::size_t>(corde)];
  if (rang == 0) {
    // Above the nut: a string not played becomes open, any other is muted.
    f = f >= kCaseVide ? 0 : kCaseVide;
  } else {
    // A second click on the same fret lifts the finger.
    const int c = rang + m_premiere->value() - 1;
    f = f == c ? 0 : c;
  }
  redessine();
}

void FTabAccord::ajoute(const Diagramme& d, bool montrer) {
  const auto it = std::find(m_liste.begin(), m_liste.end(), d);
  if (it != m_liste.end()) {
    if (montrer) m_lst->setCurrentRow(static_cast<int>(it - m_liste.begin()));
    return;
  }
  m_liste.push_back(d);
  auto* item = new QListWidgetItem(QIcon(vignette(d, kVignette)), QString(), m_lst);
  item->setToolTip(d.nom);
  item->setSizeHint(kVignette + QSize(8, 8));
}

void FTabAccord::retire() {
  const int i = m_lst->currentRow();
  if (i < 0 || i >= static_cast<int>(m_liste.size())) return;
  m_liste.erase(m_liste.begin() + i);
  delete m_lst->takeItem(i);
  m_retirer->setEnabled(m_lst->currentRow() >= 0);
}

void FTabAccord::charge(int index) {
  m_retirer->setEnabled(index >= 0);
  if (index < 0 || index >= static_cast<int>(m_liste.size())) return;
  prend(m_liste[static_cast<std::size_t>(index)]);
}

void FTabAccord::prend(const Diagramme& d) {
  // A diagram of another string count keeps what fits.
  Diagramme neuf = Diagramme::vide(m_courant.nbrCordes);
  neuf.nom = d.nom;
  for (int c = 1; c <= std::min(d.nbrCordes, neuf.nbrCordes); ++c)
    neuf.cases[static_cast<std::size_t>(c)] = d.cases[static_cast<std::size_t>(c)];
  m_courant = neuf;
  m_nom->setText(m_courant.nom);
  const int premiere = m_courant.premiereCaseJouee();
  m_premiere->setValue(premiere > 0 ? premiere : 1);
  redessine();
}

void FTabAccord::duDictionnaire() {
  Diagramme d = Diagramme::vide(m_courant.nbrCordes);
  if (m_dictionnaire && m_dictionnaire(d)) prend(d);
}

void FTabAccord::efface() {
  const int n = m_doc.searchMesureAccord(m_piste, m_mesure, m_x);
  if (n != 0) {
    storeUndoPiste(m_doc, m_piste);
    m_doc.deleteAccord(m_piste, m_mesure, n);
    m_doc.modifi = kVrai;
    m_modifie = true;
  }
  QDialog::accept();
}

void FTabAccord::accept() {
  m_courant.nom = m_nom->text();
  const QString refus =
      refusTexte(m_t, nomDeChamp(m_libelleNom->text()), m_courant.nom, versDocument(m_courant.nom));
  if (!refus.isEmpty()) {
    montreErreur(m_erreur, refus, m_nom);
    return;
  }
  int n = m_doc.searchMesureAccord(m_piste, m_mesure, m_x);
  if (n != 0 && lireAccord(m_doc, m_piste, m_mesure, n) == m_courant) {
    QDialog::accept();
    return;
  }
  if (n == 0 && m_doc.getMesureAccordLast(m_piste, m_mesure) >= kMaxEntrees) {
    montreErreur(m_erreur, m_t.loadString(579), nullptr);
    return;
  }
  storeUndoPiste(m_doc, m_piste);
  if (n == 0) n = m_doc.addandplaceMesureAccord(m_piste, m_mesure, m_x);
  OneBased<byt> frettes(m_courant.nbrCordes);
  for (int c = 1; c <= m_courant.nbrCordes; ++c)
    frettes[c] = static_cast<byt>(m_courant.cases[static_cast<std::size_t>(c)]);
  m_modifie =
      n != 0 && m_doc.setMesureAccord(m_piste, m_mesure, n, versDocument(m_courant.nom), frettes);
  if (m_modifie) m_doc.modifi = kVrai;
  QDialog::accept();
}

}  // namespace vt

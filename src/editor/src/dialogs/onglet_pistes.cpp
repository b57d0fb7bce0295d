#include "onglet_pistes.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QVBoxLayout>
#include <algorithm>

#include "document/tablature.h"
#include "formats/catalogue.h"
#include "note_midi.h"
#include "texte_document.h"

namespace vt {

namespace {

constexpr int kCasesMax = 36;
constexpr int kBankMax = 16383;  // 14 bits: bank select MSB and LSB
constexpr int kPatchs = 128;
// A string added below the others starts a fourth under the lowest.
constexpr int kQuarte = 5;

QSpinBox* spin(QWidget* parent, const char* nom, int min, int max) {
  auto* s = new QSpinBox(parent);
  s->setObjectName(QString::fromLatin1(nom));
  s->setRange(min, max);
  return s;
}

QLabel* libellé(QWidget* parent, const QString& texte, QWidget* champ) {
  auto* l = new QLabel(texte, parent);
  l->setBuddy(champ);
  return l;
}

}  // namespace

OngletPistes::OngletPistes(const Textes& t, const CatalogueGuitares& catalogue,
                           const tGuitare& courant, const CVantoroTablature& doc, int piste,
                           QWidget* parent)
    : QWidget(parent), m_t(t), m_catalogue(catalogue), m_courant(courant), m_doc(doc) {
  setObjectName(QStringLiteral("ongletPistes"));
  for (int p = 1; p <= doc.getPisteLast(); ++p)
    m_initiaux.push_back(ReglagesPiste::lire(doc, p));
  m_reglages = m_initiaux;
  for (int i = 1; i <= catalogue.nbrGuitares(); ++i)
    m_guitares.push_back(catalogue.loadGuitare(i, t.setLang));

  auto* colonne = new QVBoxLayout(this);
  auto* haut = new QFormLayout;
  m_pistes = new QComboBox(this);
  m_pistes->setObjectName(QStringLiteral("cmbPiste"));
  for (int p = 1; p <= doc.getPisteLast(); ++p)
    m_pistes->addItem(texteDePiste(p));
  haut->addRow(libellé(this, t.loadString(572), m_pistes), m_pistes);
  colonne->addLayout(haut);

  auto* deux = new QHBoxLayout;
  colonne->addLayout(deux);

  // Left: the name and the instrument.
  auto* gauche = new QFormLayout;
  gauche->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
  deux->addLayout(gauche);
  m_nom = new QLineEdit(this);
  m_nom->setObjectName(QStringLiteral("txtNom"));
  m_nom->setMaxLength(kMaxTexte);
  m_libelleNom = libellé(this, t.loadString(510), m_nom);
  gauche->addRow(m_libelleNom, m_nom);
  m_instrument = new QComboBox(this);
  m_instrument->setObjectName(QStringLiteral("cmbInstrument"));
  for (const tGuitare& g : m_guitares)
    m_instrument->addItem(depuisDocument(g.nom));
  m_instrument->addItem(t.loadString(573));  // a tuning of the track's own
  gauche->addRow(libellé(this, t.loadString(511), m_instrument), m_instrument);
  auto* prendre = new QPushButton(t.loadString(558), this);
  prendre->setObjectName(QStringLiteral("btnInstrumentCourant"));
  prendre->setAutoDefault(false);
  gauche->addRow(QString(), prendre);
  m_cordes = spin(this, "udCordes", 1, kMaxCordes);
  gauche->addRow(libellé(this, t.loadString(512), m_cordes), m_cordes);
  m_cases = spin(this, "udCases", 1, kCasesMax);
  gauche->addRow(libellé(this, t.loadString(513), m_cases), m_cases);
  m_capo = spin(this, "udCapo", 0, kCasesMax);
  gauche->addRow(libellé(this, t.loadString(514), m_capo), m_capo);
  auto* accordage = new QLabel(t.loadString(515), this);
  gauche->addRow(accordage);
  for (int c = 1; c <= kMaxCordes; ++c) {
    auto* s = new SpinNote(t.setLang, this);
    s->setObjectName(QStringLiteral("udCorde%1").arg(c));
    auto* l = libellé(this, t.loadString(574).arg(c), s);
    m_accordage[static_cast<std::size_t>(c)] = s;
    m_libellesCordes[static_cast<std::size_t>(c)] = l;
    gauche->addRow(l, s);
    connect(s, &QSpinBox::valueChanged, this, &OngletPistes::accordageEdite);
  }
  accordage->setBuddy(m_accordage[1]);
  // Two lines kept for the warning, so that nothing moves when it shows.
  m_perte = new QLabel(this);
  m_perte->setObjectName(QStringLiteral("lblPerte"));
  m_perte->setWordWrap(true);
  m_perte->setStyleSheet(QStringLiteral("color: #a05000;"));
  m_perte->setMinimumHeight(2 * m_perte->fontMetrics().lineSpacing() + 4);
  m_perte->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  gauche->addRow(m_perte);

  // Right: the sound, the staff, the play flags.
  auto* droite = new QFormLayout;
  droite->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
  deux->addSpacing(16);
  deux->addLayout(droite);
  m_patch = new QComboBox(this);
  m_patch->setObjectName(QStringLiteral("cmbPatch"));
  for (int i = 0; i < kPatchs; ++i)
    m_patch->addItem(t.loadString(4000 + i));
  droite->addRow(libellé(this, t.loadString(516), m_patch), m_patch);
  m_bank = spin(this, "udBank", 0, kBankMax);
  droite->addRow(libellé(this, t.loadString(517), m_bank), m_bank);
  m_pan = spin(this, "udPan", 0, 127);
  m_reverb = spin(this, "udReverb", 0, 127);
  m_chorus = spin(this, "udChorus", 0, 127);
  m_tremolo = spin(this, "udTremolo", 0, 127);
  m_phaser = spin(this, "udPhaser", 0, 127);
  droite->addRow(libellé(this, t.loadString(550), m_pan), m_pan);
  droite->addRow(libellé(this, t.loadString(551), m_reverb), m_reverb);
  droite->addRow(libellé(this, t.loadString(552), m_chorus), m_chorus);
  droite->addRow(libellé(this, t.loadString(553), m_tremolo), m_tremolo);
  droite->addRow(libellé(this, t.loadString(554), m_phaser), m_phaser);

  m_guitare = new QRadioButton(t.loadString(519), this);
  m_guitare->setObjectName(QStringLiteral("optGuitare"));
  m_batterie = new QRadioButton(t.loadString(520), this);
  m_batterie->setObjectName(QStringLiteral("optBatterie"));
  auto* portées = new QButtonGroup(this);
  portées->addButton(m_guitare);
  portées->addButton(m_batterie);
  auto* portée = new QVBoxLayout;
  portée->setSpacing(2);
  portée->addWidget(m_guitare);
  portée->addWidget(m_batterie);
  droite->addRow(new QLabel(t.loadString(518), this), portée);
  m_sol = new QRadioButton(t.loadString(522), this);
  m_sol->setObjectName(QStringLiteral("optSol"));
  m_fa = new QRadioButton(t.loadString(523), this);
  m_fa->setObjectName(QStringLiteral("optFa"));
  auto* clés = new QButtonGroup(this);
  clés->addButton(m_sol);
  clés->addButton(m_fa);
  auto* clé = new QVBoxLayout;
  clé->setSpacing(2);
  clé->addWidget(m_sol);
  clé->addWidget(m_fa);
  droite->addRow(new QLabel(t.loadString(521), this), clé);
  m_solo = new QCheckBox(t.loadString(556), this);
  m_solo->setObjectName(QStringLiteral("chkSolo"));
  m_mute = new QCheckBox(t.loadString(557), this);
  m_mute->setObjectName(QStringLiteral("chkMute"));
  auto* drapeaux = new QHBoxLayout;
  drapeaux->addWidget(m_solo);
  drapeaux->addWidget(m_mute);
  drapeaux->addStretch();
  droite->addRow(QString(), drapeaux);
  colonne->addStretch();

  m_piste = std::clamp(piste, 1, doc.getPisteLast());
  m_pistes->setCurrentIndex(m_piste - 1);
  montre();
  connect(m_pistes, &QComboBox::currentIndexChanged, this, [this](int i) { choisitPiste(i + 1); });
  connect(m_nom, &QLineEdit::textEdited, this, [this](const QString& nom) {
    m_reglages[static_cast<std::size_t>(m_piste - 1)].nom = nom;
    m_pistes->setItemText(m_piste - 1, texteDePiste(m_piste));
  });
  connect(m_instrument, &QComboBox::activated, this, &OngletPistes::instrumentChoisi);
  connect(prendre, &QPushButton::clicked, this, [this] { prendGuitare(m_courant); });
  connect(m_cordes, &QSpinBox::valueChanged, this, &OngletPistes::accordageEdite);
}

QString OngletPistes::libelleNom() const {
  return m_libelleNom->text();
}

QString OngletPistes::texteDePiste(int p) const {
  // As the track buttons' tips say it: "Track 2 : Bass".
  const QString nom = m_reglages[static_cast<std::size_t>(p - 1)].nom;
  QString texte = m_t.loadString(5130) + QString::number(p);
  if (!nom.isEmpty()) texte += QStringLiteral(" : ") + nom;
  return texte;
}

void OngletPistes::choisitPiste(int p) {
  if (p < 1 || p > static_cast<int>(m_reglages.size()) || p == m_piste) return;
  recueille();
  m_piste = p;
  if (m_pistes->currentIndex() != p - 1) m_pistes->setCurrentIndex(p - 1);
  montre();
}

const std::vector<ReglagesPiste>& OngletPistes::reglages() {
  recueille();
  return m_reglages;
}

int OngletPistes::indexCatalogue(const ReglagesPiste& r) const {
  // The instrument of the same name and tuning, else the first of the same tuning.
  tPiste p;
  p.bytNbrCordes = static_cast<byt>(r.nbrCordes);
  for (int c = 1; c <= kMaxCordes; ++c)
    p.bytCordes[static_cast<std::size_t>(c)] =
        static_cast<byt>(r.cordes[static_cast<std::size_t>(c)]);
  const int parAccordage = chercherGuitareAccordage(m_catalogue, p);
  for (std::size_t i = 0; parAccordage != 0 && i < m_guitares.size(); ++i) {
    const tGuitare& g = m_guitares[i];
    if (g.nom != r.guitareNom || g.nbrCordes != r.nbrCordes) continue;
    bool mêmes = true;
    for (int c = 1; mêmes && c <= g.nbrCordes; ++c)
      mêmes = g.corde[static_cast<std::size_t>(c)] == r.cordes[static_cast<std::size_t>(c)];
    if (mêmes) return static_cast<int>(i) + 1;
  }
  return parAccordage;
}

void OngletPistes::montre() {
  m_remplit = true;
  const ReglagesPiste& r = m_reglages[static_cast<std::size_t>(m_piste - 1)];
  m_nom->setText(r.nom);
  const int i = indexCatalogue(r);
  const int perso = m_instrument->count() - 1;
  // A tuning of its own shows under the track's instrument name, if it has one.
  m_instrument->setItemText(
      perso, i == 0 && !r.guitareNom.empty() ? depuisDocument(r.guitareNom) : m_t.loadString(573));
  m_instrument->setCurrentIndex(i > 0 ? i - 1 : perso);
  m_cordes->setValue(r.nbrCordes);
  m_cases->setValue(r.nbrCases);
  m_capo->setValue(r.capodastre);
  for (int c = 1; c <= kMaxCordes; ++c) {
    const int note = r.cordes[static_cast<std::size_t>(c)];
    // A string the track has not: a fourth under the one above it.
    const int ouverte =
        c <= r.nbrCordes || note != 0
            ? note
            : std::max(0, m_accordage[static_cast<std::size_t>(c - 1)]->value() - kQuarte);
    m_accordage[static_cast<std::size_t>(c)]->setValue(ouverte);
  }
  m_patch->setCurrentIndex(std::clamp(r.patch, 0, kPatchs - 1));
  m_bank->setValue(r.bank);
  m_pan->setValue(r.pan);
  m_reverb->setValue(r.reverb);
  m_chorus->setValue(r.chorus);
  m_tremolo->setValue(r.tremolo);
  m_phaser->setValue(r.phaser);
  (r.staffType == kStaffBatterie ? m_batterie : m_guitare)->setChecked(true);
  (r.clef == 1 ? m_sol : m_fa)->setChecked(true);
  m_solo->setChecked(r.solo);
  m_mute->setChecked(r.mute);
  m_remplit = false;
  actualise();
}

void OngletPistes::recueille() {
  const std::size_t i = static_cast<std::size_t>(m_piste - 1);
  const ReglagesPiste& avant = m_initiaux[i];
  ReglagesPiste& r = m_reglages[i];
  r.nom = m_nom->text();
  r.nbrCordes = m_cordes->value();
  for (int c = 1; c <= kMaxCordes; ++c) {
    const auto k = static_cast<std::size_t>(c);
    // Strings past the count hold nothing; those the track never had stay as stored.
    if (c <= r.nbrCordes)
      r.cordes[k] = m_accordage[k]->value();
    else
      r.cordes[k] = c <= avant.nbrCordes ? 0 : avant.cordes[k];
  }
  r.nbrCases = m_cases->value();
  r.capodastre = m_capo->value();
  // A patch outside the list stays as it is unless another is chosen.
  if (m_patch->currentIndex() != std::clamp(r.patch, 0, kPatchs - 1))
    r.patch = m_patch->currentIndex();
  r.bank = m_bank->value();
  r.pan = m_pan->value();
  r.reverb = m_reverb->value();
  r.chorus = m_chorus->value();
  r.tremolo = m_tremolo->value();
  r.phaser = m_phaser->value();
  // Values the buttons do not name (a staff type above 1, a clef other than
  // 1 or 2) are kept while their button stays chosen.
  if (m_batterie->isChecked())
    r.staffType = kStaffBatterie;
  else
    r.staffType = avant.staffType != kStaffBatterie ? avant.staffType : kStaffGuitare;
  if (m_sol->isChecked())
    r.clef = 1;
  else
    r.clef = avant.clef != 1 ? avant.clef : 2;
  r.solo = m_solo->isChecked();
  r.mute = m_mute->isChecked();
}

void OngletPistes::instrumentChoisi(int index) {
  ReglagesPiste& r = m_reglages[static_cast<std::size_t>(m_piste - 1)];
  if (index >= 0 && index < static_cast<int>(m_guitares.size())) {
    prendGuitare(m_guitares[static_cast<std::size_t>(index)]);
  } else {
    r.guitareNom = versDocument(m_instrument->itemText(index));
  }
}

void OngletPistes::prendGuitare(const tGuitare& g) {
  m_remplit = true;
  m_cordes->setValue(g.nbrCordes);
  for (int c = 1; c <= g.nbrCordes; ++c)
    m_accordage[static_cast<std::size_t>(c)]->setValue(g.corde[static_cast<std::size_t>(c)]);
  m_cases->setValue(std::clamp<int>(g.nbrCases, 1, kCasesMax));
  m_capo->setValue(std::min<int>(g.capodastre, kCasesMax));
  m_remplit = false;
  ReglagesPiste& r = m_reglages[static_cast<std::size_t>(m_piste - 1)];
  r.guitareNom = g.nom;
  recueille();
  const int i = indexCatalogue(r);
  const int perso = m_instrument->count() - 1;
  m_instrument->setItemText(perso, i == 0 ? depuisDocument(g.nom) : m_t.loadString(573));
  m_instrument->setCurrentIndex(i > 0 ? i - 1 : perso);
  actualise();
}

void OngletPistes::accordageEdite() {
  if (m_remplit) return;
  recueille();
  // A tuning changed by hand is the track's own, unless it is the instrument's.
  ReglagesPiste& r = m_reglages[static_cast<std::size_t>(m_piste - 1)];
  const int index = m_instrument->currentIndex();
  const int perso = m_instrument->count() - 1;
  if (index != perso && indexCatalogue(r) != index + 1) {
    r.guitareNom = versDocument(m_t.loadString(573));
    m_instrument->setItemText(perso, m_t.loadString(573));
    m_instrument->setCurrentIndex(perso);
  }
  actualise();
}

void OngletPistes::actualise() {
  const int n = m_cordes->value();
  for (int c = 1; c <= kMaxCordes; ++c) {
    const auto k = static_cast<std::size_t>(c);
    m_accordage[k]->setEnabled(c <= n);
    m_libellesCordes[k]->setEnabled(c <= n);
  }
  const int perdues = notesPerdues(m_doc, m_piste, n);
  m_perte->setText(perdues > 0 ? m_t.loadString(575).arg(perdues) : QString());
}

}  // namespace vt

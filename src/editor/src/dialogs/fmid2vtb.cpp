#include "fmid2vtb.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QCommandLinkButton>
#include <QDialogButtonBox>
#include <QFile>
#include <QFileInfo>
#include <QFormLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>
#include <exception>

#include "commun.h"
#include "document/tablature.h"
#include "formats/catalogue.h"
#include "formats/midi_import.h"

namespace vt {

namespace {

// Any shift keeps a note inside MIDI's range: it is held to 0..127.
constexpr int kTranspositionMax = 127;
constexpr int kAucune = -1;  // the data of a list's "(none)" entry

}  // namespace

Fmid2vtb::Fmid2vtb(const Textes& t, const CatalogueGuitares& catalogue, const tGuitare& guitare,
                   const QString& chemin, CVantoroTablature& doc, OuvreAide aide, QWidget* parent)
    : QDialog(parent),
      m_t(t),
      m_catalogue(catalogue),
      m_guitare(guitare),
      m_chemin(chemin),
      m_doc(doc),
      m_aide(std::move(aide)) {
  setObjectName(QStringLiteral("Fmid2vtb"));
  setWindowTitle(t.loadString(1000));
  const InterchangeResult r = ouvrirMidi(QFile::encodeName(chemin).toStdString(), m_fichier);
  m_lu = r.ok();
  if (!m_lu) {
    m_refus = messageRefus(t, r);
    return;
  }
  m_sources = sourcesMidi(m_fichier, t.setLang);
  construit();
}

void Fmid2vtb::construit() {
  auto* colonne = new QVBoxLayout(this);
  if (m_fichier.format == 0) {
    // The tracks of such a file are mixed into one: the lists offer channels.
    auto* avis = new QLabel(m_t.loadString(kMsgMidiFormat0), this);
    avis->setObjectName(QStringLiteral("lblAvis"));
    avis->setWordWrap(true);
    avis->setStyleSheet(QStringLiteral("color: #a05000;"));
    colonne->addWidget(avis);
  }
  colonne->addWidget(new QLabel(m_t.loadString(1006), this));
  auto* grille = new QFormLayout;
  grille->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
  colonne->addLayout(grille);

  // Every source is offered; those that hold notes fill the first lists, as
  // they would be chosen.
  const std::vector<int> parDéfaut = sourcesParDéfaut(m_sources);
  for (int k = 0; k < kCibles; ++k) {
    auto* liste = new QComboBox(this);
    liste->setObjectName(QStringLiteral("Piste_convertir_%1").arg(k + 1));
    liste->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    liste->setMinimumContentsLength(24);
    liste->addItem(m_t.loadString(1014), kAucune);
    for (const MidiSource& s : m_sources)
      liste->addItem(texteExterieur(s.libellé), s.numéro);
    if (static_cast<std::size_t>(k) < parDéfaut.size())
      liste->setCurrentIndex(liste->findData(parDéfaut[static_cast<std::size_t>(k)]));
    connect(liste, &QComboBox::currentIndexChanged, this, &Fmid2vtb::phrase);
    auto* libelléListe = new QLabel(m_t.loadString(5130) + QString::number(k + 1), this);
    libelléListe->setBuddy(liste);
    grille->addRow(libelléListe, liste);
    m_listes[static_cast<std::size_t>(k)] = liste;
  }

  m_transpose = new QSpinBox(this);
  m_transpose->setObjectName(QStringLiteral("udTranspose"));
  m_transpose->setRange(-kTranspositionMax, kTranspositionMax);
  auto* libelléTranspose = new QLabel(m_t.loadString(1007), this);
  libelléTranspose->setBuddy(m_transpose);
  grille->addRow(libelléTranspose, m_transpose);
  // A file's tempo changes are part of the piece: taken unless refused.
  m_tempos = new QCheckBox(m_t.loadString(1011), this);
  m_tempos->setObjectName(QStringLiteral("chkTempos"));
  m_tempos->setChecked(true);
  grille->addRow(QString(), m_tempos);

  m_convertir = new QCommandLinkButton(m_t.loadString(1005), this);
  m_convertir->setObjectName(QStringLiteral("btnOk"));
  m_convertir->setDefault(true);
  connect(m_convertir, &QAbstractButton::clicked, this, &Fmid2vtb::accept);
  colonne->addWidget(m_convertir);

  m_avancement = std::make_unique<Avancement>(this, colonne);
  m_erreur = ligneErreur(this);
  colonne->addWidget(m_erreur);

  auto* boutons = new QDialogButtonBox(this);
  QPushButton* annuler = boutons->addButton(m_t.loadString(91), QDialogButtonBox::RejectRole);
  annuler->setObjectName(QStringLiteral("btnAnnuler"));
  connect(boutons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  if (m_aide) {
    QPushButton* aide = boutons->addButton(m_t.loadString(93), QDialogButtonBox::HelpRole);
    aide->setObjectName(QStringLiteral("btnAide"));
    connect(aide, &QAbstractButton::clicked, this,
            [this] { m_aide(QStringLiteral("files.html#midiimport")); });
  }
  colonne->addWidget(boutons);
  phrase();
  colonne->setSizeConstraint(QLayout::SetFixedSize);
}

bool Fmid2vtb::importer(QWidget* parent, const Textes& t, const CatalogueGuitares& catalogue,
                        const tGuitare& guitare, const QString& chemin, CVantoroTablature& doc,
                        OuvreAide aide) {
  Fmid2vtb d(t, catalogue, guitare, chemin, doc, std::move(aide), parent);
  if (!d.lu()) {
    QMessageBox::warning(parent, t.loadString(1000), d.refus());
    return false;
  }
  d.exec();
  return d.remplace();
}

std::vector<int> Fmid2vtb::choix() const {
  std::vector<int> sources;
  for (const QComboBox* l : m_listes) {
    if (l == nullptr) continue;
    const int s = l->currentData().toInt();
    if (s != kAucune) sources.push_back(s);
  }
  return sources;
}

QString Fmid2vtb::libellé(int source) const {
  for (const MidiSource& s : m_sources)
    if (s.numéro == source) return texteExterieur(s.libellé);
  return QString::number(source);
}

void Fmid2vtb::phrase() {
  const std::vector<int> sources = choix();
  if (sources.empty()) {
    m_convertir->setDescription(m_t.loadString(kMsgMidiAucuneCible));
    return;
  }
  QStringList noms;
  for (int s : sources)
    noms << libellé(s);
  m_convertir->setDescription(m_t.loadString(2503) + noms.join(QStringLiteral(", ")) +
                              m_t.loadString(2504) + QFileInfo(m_chemin).fileName() +
                              m_t.loadString(2505));
}

void Fmid2vtb::accept() {
  if (!m_lu) return;
  const std::vector<int> sources = choix();
  if (sources.empty()) {
    montreErreur(m_erreur, m_t.loadString(kMsgMidiAucuneCible), m_listes[0]);
    return;
  }
  montreErreur(m_erreur, QString(), nullptr);
  MidiImportOptions o;
  o.sources = sources;
  o.transposition = m_transpose->value();
  o.tempos = m_tempos->isChecked();
  o.guitare = m_guitare;
  MidiImportProgress suivi;
  suivi.étape = [this](int id) { m_avancement->étape(m_t, id); };
  suivi.progression = [this](std::size_t p, std::size_t n) { m_avancement->position(p, n); };

  // The work goes into a document of its own: the one shown stays whole
  // until the conversion has succeeded.
  CVantoroTablature nouveau(m_guitare);
  InterchangeResult r;
  QApplication::setOverrideCursor(Qt::WaitCursor);
  try {
    r = convertirMidi(m_fichier, o, nouveau, suivi);
  } catch (const std::exception&) {
    r = InterchangeResult::refus(kMsgMidiErreur);
  }
  QApplication::restoreOverrideCursor();
  if (!r.ok()) {
    m_avancement->efface();
    QWidget* champ = m_listes[0];
    if (r.stringId == kMsgMidiPisteSansNote) {
      // Which list holds the track without notes.
      const int s = QString::fromStdString(r.détail).toInt();
      for (QComboBox* l : m_listes)
        if (l->currentData().toInt() == s) {
          champ = l;
          break;
        }
      r.détail = libellé(s).toStdString();
    }
    montreErreur(m_erreur, messageRefus(m_t, r), champ);
    return;
  }
  nommeInstruments(nouveau, m_catalogue, m_guitare, m_t.setLang);
  // An imported piece has no file of its own yet.
  nouveau.modifi = kVrai;
  m_doc = std::move(nouveau);
  m_remplace = true;
  QDialog::accept();
}

}  // namespace vt

#include "shell/foptions.h"

#include <QApplication>
#include <QColorDialog>
#include <QDialogButtonBox>
#include <QFontDialog>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>
#include <ranges>

#include "faide_navigateur.h"
#include "options_pages.h"
#include "options_regles.h"
#include "shell/vt.h"

namespace vt {

const std::array<QString, 7> FOptions::kClés = {
    QStringLiteral("KeyDiv"),    QStringLiteral("KeyTab"),      QStringLiteral("KeyGam"),
    QStringLiteral("accords"),   QStringLiteral("KeyM\u00e9t"), QStringLiteral("KeyMidi"),
    QStringLiteral("KeyMidiIn"),
};

namespace {

// The tabs' captions, in the keys' order.
constexpr std::array<StringId, 7> kTitres = {StringId{1103}, StringId{1101}, StringId{1102},
                                             StringId{1122}, StringId{1104}, StringId{1163},
                                             StringId{1165}};

// The help's topic of each page.
constexpr std::array<const char*, 7> kAides = {
    "options.html#general", "options.html#tablature", "options.html#scales",
    "options.html#chords",  "options.html#metronome", "options.html#midi",
    "options.html#midiin",
};

// The wait cursor over whatever has the pointer, for the time of a step.
class Attente {
 public:
  Attente() { QApplication::setOverrideCursor(Qt::WaitCursor); }
  ~Attente() { QApplication::restoreOverrideCursor(); }
  Attente(const Attente&) = delete;
  Attente& operator=(const Attente&) = delete;
};

}  // namespace

FOptions::FOptions(VT& vt) : QDialog(&vt), m_vt(vt) {
  setModal(true);
  m_onglets = new QTabWidget(this);
  m_onglets->setObjectName(QStringLiteral("TabStrip"));
  // Every page's tab in sight, in both languages.
  m_onglets->setUsesScrollButtons(false);
  m_div = new PageDiv(vt, m_onglets);
  m_tab = new PageTab(*this, m_onglets);
  m_gam = new PageGam(vt, m_onglets);
  m_accords = new PageAccords(vt, m_onglets);
  m_met = new PageMet(vt, m_onglets);
  m_midi = new PageMidi(vt, m_onglets);
  m_midiIn = new PageMidiIn(vt, m_onglets);
  for (QWidget* page :
       std::initializer_list<QWidget*>{m_div, m_tab, m_gam, m_accords, m_met, m_midi, m_midiIn})
    m_onglets->addTab(page, QString());

  auto* boutons = new QDialogButtonBox(this);
  m_ok = boutons->addButton(QString(), QDialogButtonBox::AcceptRole);
  m_ok->setObjectName(QStringLiteral("btnOK"));
  m_ok->setDefault(true);
  m_annuler = boutons->addButton(QString(), QDialogButtonBox::RejectRole);
  m_annuler->setObjectName(QStringLiteral("btnAnnuler"));
  m_aide = boutons->addButton(QString(), QDialogButtonBox::HelpRole);
  m_aide->setObjectName(QStringLiteral("btnAide"));
  connect(m_ok, &QPushButton::clicked, this, [this] { btnOK_Click(); });
  connect(m_annuler, &QPushButton::clicked, this, [this] { btnAnnuler_Click(); });
  connect(m_aide, &QPushButton::clicked, this, [this] { btnAide_Click(); });

  auto* pile = new QVBoxLayout(this);
  pile->addWidget(m_onglets, 1);
  pile->addWidget(boutons);

  choisitCouleur = [this](const QColor& initiale) -> std::optional<QColor> {
    const QColor c = QColorDialog::getColor(initiale, this);
    if (!c.isValid()) return std::nullopt;
    return c;
  };
  choisitPolice = [this](const QFont& initiale) -> std::optional<QFont> {
    bool ok = false;
    const QFont f = QFontDialog::getFont(&ok, initiale, this);
    if (!ok) return std::nullopt;
    return f;
  };
  load_lang();
}

FOptions::~FOptions() = default;

void FOptions::load_lang() {
  setWindowTitle(m_vt.loadString(1100));
  for (std::size_t i = 0; i < kTitres.size(); ++i)
    m_onglets->setTabText(static_cast<int>(i), m_vt.loadString(kTitres[i]));
  m_div->load_lang();
  m_tab->load_lang();
  m_gam->load_lang();
  m_accords->load_lang();
  m_met->load_lang();
  m_midi->load_lang();
  m_midiIn->load_lang();
  m_ok->setText(m_vt.loadString(90));
  m_annuler->setText(m_vt.loadString(91));
  m_aide->setText(m_vt.loadString(93));
}

void FOptions::Form_Load() {
  // The lists first, so that the rules find their entries.
  m_midi->remplitSorties();
  m_midiIn->remplitEntrées();
  m_div->remplitSkins();
  load_lang();
  const Settings& s = m_vt.settings();
  for (const RègleOption& r : règlesOptions() | std::views::reverse)
    r.charge(*this, s);
}

void FOptions::selectTab(const QString& clé) {
  for (std::size_t i = 0; i < kClés.size(); ++i)
    if (kClés[i] == clé) m_onglets->setCurrentIndex(static_cast<int>(i));
}

QString FOptions::onglet() const {
  const int i = m_onglets->currentIndex();
  return i < 0 ? QString() : kClés[static_cast<std::size_t>(i)];
}

void FOptions::btnOK_Click() {
  {
    const Attente attente;
    Settings& s = m_vt.settings();
    RegistreFenetres& fenêtres = m_vt.fenetres();
    for (const RègleOption& r : règlesOptions())
      r.applique(*this, s);

    // The chord window searches again, since its parameters may have
    // changed; every other window takes what it shows from the settings.
    if (auto* accords = fenêtres.interface<FenetreVT>(fen::FAccords)) accords->optionsAppliquées();
    for (QWidget* w : fenêtres.chargées()) {
      auto* f = dynamic_cast<FenetreVT*>(w);
      if (f && w != this && w != fenêtres.fenetre(fen::FAccords)) f->optionsAppliquées();
    }

    const QString skin = m_div->skin();
    if (!skin.isEmpty() && skin != s.strSkinPath) m_vt.changeSkin(skin);

    if (auto* tab = fenêtres.interface<FenetreTablature>(fen::FTab)) tab->refreshPicture();

    m_vt.load_picManche_picture();
    m_vt.updateManche();
    m_vt.drawMancheContenu();

    m_vt.son().midiProgramGlobal(s.setMIDIinstru);
    m_vt.setStatusMidi();
  }
  accept();
  // A device that could not be opened says so once, over the main window.
  m_vt.montreMessagesSon();
}

void FOptions::btnAnnuler_Click() {
  reject();
}

void FOptions::btnAide_Click() {
  // A window of the dialog's own, so that it can be read while the dialog waits.
  if (!m_navigateur) m_navigateur = new FAideNavigateur(m_vt, this);
  m_navigateur->montrePage(
      QString::fromUtf8(kAides[static_cast<std::size_t>(std::max(0, m_onglets->currentIndex()))]));
  m_navigateur->show();
  m_navigateur->raise();
  m_navigateur->activateWindow();
}

void FOptions::done(int r) {
  // Nothing the tests sounded goes on after the dialog.
  m_midi->arrêteEssais();
  if (m_navigateur) m_navigateur->close();
  QDialog::done(r);
}

}  // namespace vt

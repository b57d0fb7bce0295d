// The main window's chrome: menus, toolbar, status bar, the MDI area and the
// fretboard strip under it.
#include "shell/vt.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPrinter>
#include <QStatusBar>
#include <QToolBar>
#include <QVBoxLayout>
#include <optional>

#include "faide.h"
#include "faide_navigateur.h"
#include "resources.h"
#include "shell/icones.h"
#include "shell/manche.h"
#include "shell/skin.h"
#include "shell/textes.h"
#include "status_panel.h"
#include "traduction_qt.h"

namespace vt {

namespace {

// The toolbar's images, in the order of the image list (index 1 first).
constexpr std::array<const char*, 12> kImagesBarre = {
    "TB_GAMME", "TB_ACCORD", "TB_MCI", "TB_ACCORDEUR", "TB_TAB",    "TB_METRONOME",
    "TB_QUIT",  "TB_HELP",   "TB_KEY", "TB_OPTIONS",   "TB_MANCHE", "TB_WIZARD",
};

struct BoutonBarre {
  const char* clé;
  int image;                        // 1-based in the image list
  std::optional<StringId> tooltip;  // none: the literal "Options"
};
constexpr std::array<BoutonBarre, 11> kBoutons = {{
    {"accords", 2, StringId{41}},
    {"gammes", 1, StringId{40}},
    {"mci", 3, StringId{42}},
    {"accordeur", 4, StringId{43}},
    {"métronome", 6, StringId{45}},
    {"tablatures", 5, StringId{44}},
    {"harmony", 12, StringId{66}},
    {"options", 10, std::nullopt},
    {"manche", 11, StringId{68}},
    {"aide", 8, StringId{47}},
    {"quitter", 7, StringId{46}},
}};

// The Window menu's first seven entries: caption, window, shortcut.
struct EntréeFen {
  StringId libellé;
  const QString* fenetre;
  Qt::Key touche;
};
const std::array<EntréeFen, 7> kFen = {{
    {StringId{22}, &fen::FAccords, Qt::Key_F3},
    {StringId{21}, &fen::FGammes, Qt::Key_F4},
    {StringId{23}, &fen::FMultimedia, Qt::Key_F5},
    {StringId{24}, &fen::FAccordeur, Qt::Key_F6},
    {StringId{25}, &fen::FMetronome, Qt::Key_F7},
    {StringId{26}, &fen::FTab, Qt::Key_F8},
    {StringId{65}, &fen::FHarmony, Qt::Key_F9},
}};

}  // namespace

VT::VT(QWidget* parent)
    : QMainWindow(parent), m_fenetres(*this), m_traductionQt(std::make_unique<TraductionQt>()) {
  setObjectName(QStringLiteral("VT"));
  initialiseRessourcesShell();
  setAcceptDrops(true);
  setWindowIcon(QIcon(QStringLiteral(":/toolbar/TB_TAB@2x.png")));
  for (std::size_t i = 0; i < kNotes.size(); ++i)
    m_strNotes[i] = QString::fromUtf8(kNotes[i]);

  auto* centre = new QWidget(this);
  auto* pile = new QVBoxLayout(centre);
  pile->setContentsMargins(0, 0, 0, 0);
  pile->setSpacing(0);
  m_mdi = new QMdiArea(centre);
  m_mdi->setObjectName(QStringLiteral("mdi"));
  m_mdi->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  m_mdi->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  m_mdi->setBackground(QColor(0x5A, 0x4A, 0x3C));
  m_manche = new Manche(centre);
  pile->addWidget(m_mdi, 1);
  pile->addWidget(m_manche);
  setCentralWidget(centre);
  connect(m_mdi, &QMdiArea::subWindowActivated, this,
          [this](QMdiSubWindow* sub) { menusDeLaFenêtreActive(sub); });

  connect(m_manche, &Manche::survol, this, &VT::picManche_MouseMove);
  connect(m_manche, &Manche::appui, this, &VT::picManche_MouseDown);
  connect(m_manche, &Manche::relache, this, [this] { picManche_MouseUp(); });
  connect(m_manche, &Manche::redessine, this, [this] { drawMancheContenu(); });
  connect(m_manche, &Manche::entree, this, [this] { setStatusText(78); });
  connect(m_manche, &Manche::sortie, this, [this] {
    // The red dot goes with the pointer.
    m_survolCase = m_survolCorde = -1;
    if (FenetreTablature* tab = éditeurActif()) {
      tab->mancheUpdate();
    } else {
      clearManche();
    }
    drawMancheContenu();
    setStatusText(0);
  });

  créeMenus();
  créeBarreOutils();
  créeBarreEtat();
  m_fenetres.enregistrer(fen::FAide, [](VT& vt) { return new FAide(vt); });
  setSon(sonSysteme(m_settings));
}

VT::~VT() {
  // The windows hold references to what this object owns: they go first.
  for (QWidget* w : m_fenetres.chargées()) {
    QWidget* cadre = qobject_cast<QMdiSubWindow*>(w->parentWidget());
    delete (cadre ? cadre : w);
  }
  delete m_aide.data();
}

void VT::setInteractions(const Interactions& i) {
  if (i.getLang) m_interactions.getLang = i.getLang;
  if (i.exec) m_interactions.exec = i.exec;
  if (i.critique) m_interactions.critique = i.critique;
  if (i.information) m_interactions.information = i.information;
  if (i.avertissement) m_interactions.avertissement = i.avertissement;
}

void VT::setSon(std::unique_ptr<SonLive> son) {
  if (!son) return;
  m_son = std::move(son);
  m_son->setReceveurNotes(
      [this](int corde, int note, bool enfoncee) { noteMidiEntrante(corde, note, enfoncee); });
}

QPrinter& VT::printer() {
  if (!m_printer) m_printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
  return *m_printer;
}

QString VT::loadString(int id) const {
  return qLoadString(id, m_settings.setLang);
}

QString VT::skinFile(int index) const {
  return vt::skinFile(m_strAppPath, m_settings.strSkinPath, index);
}

QString VT::skinTicTac(int frame) const {
  return vt::skinTicTac(m_strAppPath, m_settings.strSkinPath, frame);
}

QString VT::skinFolder() const {
  return vt::skinFolder(m_strAppPath, m_settings.strSkinPath);
}

QString VT::dossierAide() const {
  const QString langue =
      m_settings.setLang == kLangFrançais ? QStringLiteral("fr") : QStringLiteral("en");
  return m_strAppPath + QStringLiteral("help/") + langue + QLatin1Char('/');
}

// ---- Menus -----------------------------------------------------------------

void VT::créeMenus() {
  QMenuBar* barre = menuBar();
  for (auto& m : m_mnu)
    m = barre->addMenu(QString());

  // File.
  m_menuLangue = new QMenu(this);
  m_mnuFile[0] = m_mnu[0]->addMenu(m_menuLangue);
  m_groupeLangue = new QActionGroup(this);
  for (int i = 0; i < 2; ++i) {
    QAction* a = m_menuLangue->addAction(QString());
    a->setCheckable(true);
    m_groupeLangue->addAction(a);
    connect(a, &QAction::triggered, this, [this, i] { mnuFileLang_Click(i); });
    m_mnuFileLang[static_cast<std::size_t>(i)] = a;
  }
  m_mnuFile[1] = m_mnu[0]->addSeparator();
  m_mnuFile[2] = m_mnu[0]->addAction(QString(), this, [this] { MenuGlobalFile(2); });
  m_mnuFile[3] = m_mnu[0]->addSeparator();
  m_mnuFile[4] = m_mnu[0]->addAction(QString(), this, [this] { MenuGlobalFile(4); });
  m_mnuFile[5] = m_mnu[0]->addAction(QString(), this, [this] { MenuGlobalFile(5); });
  m_mnuFile[5]->setShortcut(QKeySequence::Quit);

  // Windows.
  for (std::size_t i = 0; i < kFen.size(); ++i) {
    const int index = static_cast<int>(i);
    m_mnuFen[i] = m_mnu[1]->addAction(QString(), this, [this, index] { mnuFen_Click(index); });
    m_mnuFen[i]->setShortcut(QKeySequence(kFen[i].touche));
  }
  m_mnuFen[7] = m_mnu[1]->addSeparator();
  for (int i = 8; i <= 11; ++i)
    m_mnuFen[static_cast<std::size_t>(i)] =
        m_mnu[1]->addAction(QString(), this, [this, i] { mnuFen_Click(i); });

  // Help.
  m_mnuAide[0] = m_mnu[2]->addAction(QString(), this, [this] { mnuAide_Click(0); });
  m_mnuAide[0]->setShortcut(QKeySequence(Qt::Key_F1));
  m_mnuAide[1] = m_mnu[2]->addAction(QString(), this, [this] { mnuAide_Click(1); });
  m_mnuAide[2] = m_mnu[2]->addAction(QString(), this, [this] { mnuAide_Click(2); });
  m_mnuAide[3] = m_mnu[2]->addSeparator();
  m_mnuAide[7] = m_mnu[2]->addAction(QString(), this, [this] { mnuAide_Click(7); });
  m_mnuAide[8] = m_mnu[2]->addAction(QString(), this, [this] { mnuAide_Click(8); });
  m_mnuAide[9] = m_mnu[2]->addSeparator();
  m_mnuAide[10] = m_mnu[2]->addAction(QString(), this, [this] { mnuAide_Click(10); });
  disponibilités();
}

void VT::libellésMenus() {
  const std::array<int, 3> titres = {10, 20, 30};
  for (std::size_t i = 0; i < 3; ++i)
    m_mnu[i]->setTitle(loadString(titres[i]));
  m_mnuFile[0]->setText(loadString(14));
  m_mnuFileLang[0]->setText(loadString(15));
  m_mnuFileLang[1]->setText(loadString(16));
  m_mnuFile[2]->setText(loadString(13));
  m_mnuFile[4]->setText(loadString(12));
  m_mnuFile[5]->setText(loadString(11));
  for (std::size_t i = 0; i < kFen.size(); ++i)
    m_mnuFen[i]->setText(loadString(kFen[i].libellé));
  m_mnuFen[8]->setText(loadString(51));
  m_mnuFen[9]->setText(loadString(52));
  m_mnuFen[10]->setText(loadString(53));
  m_mnuFen[11]->setText(loadString(54));
  m_mnuAide[0]->setText(loadString(31));
  m_mnuAide[1]->setText(loadString(32));
  m_mnuAide[2]->setText(loadString(64));
  m_mnuAide[7]->setText(loadString(55));
  m_mnuAide[8]->setText(loadString(56));
  m_mnuAide[10]->setText(loadString(34));
}

// Entries whose window this build does not have stay disabled.
void VT::disponibilités() {
  for (std::size_t i = 0; i < kFen.size(); ++i)
    m_mnuFen[i]->setEnabled(m_fenetres.estDisponible(*kFen[i].fenetre));
  m_mnuFile[4]->setEnabled(m_fenetres.estDisponible(fen::FOptions));
  m_mnuAide[7]->setEnabled(!QStringLiteral(VT_ADRESSE_COURRIEL).isEmpty());
  m_mnuAide[8]->setEnabled(!QStringLiteral(VT_ADRESSE_WEB).isEmpty());
  for (const auto& [clé, action] : m_boutons) {
    if (clé == QStringLiteral("options")) action->setEnabled(m_mnuFile[4]->isEnabled());
    for (std::size_t i = 0; i < kFen.size(); ++i) {
      if (action->data().toInt() == static_cast<int>(i) + 1)
        action->setEnabled(m_mnuFen[i]->isEnabled());
    }
  }
}

// ---- Toolbar -----------------------------------------------------------------

void VT::créeBarreOutils() {
  m_toolbar = addToolBar(QStringLiteral("Toolbar"));
  m_toolbar->setObjectName(QStringLiteral("Toolbar"));
  m_toolbar->setMovable(false);
  m_toolbar->setIconSize(QSize(32, 32));
  for (const BoutonBarre& b : kBoutons) {
    const QString clé = QString::fromUtf8(b.clé);
    if (clé == QStringLiteral("options") || clé == QStringLiteral("aide"))
      m_toolbar->addSeparator();
    QAction* a = m_toolbar->addAction(QString());
    a->setObjectName(clé);
    m_boutons.emplace_back(clé, a);
  }
  auto bouton = [this](const char* clé) {
    for (const auto& [k, a] : m_boutons)
      if (k == QString::fromUtf8(clé)) return a;
    return static_cast<QAction*>(nullptr);
  };
  // The window buttons carry their Window-menu entry (plus one) as data.
  const std::array<const char*, 7> fenêtres = {"accords",   "gammes",     "mci",    "accordeur",
                                               "métronome", "tablatures", "harmony"};
  for (std::size_t i = 0; i < fenêtres.size(); ++i) {
    QAction* a = bouton(fenêtres[i]);
    a->setData(static_cast<int>(i) + 1);
    const int index = static_cast<int>(i);
    connect(a, &QAction::triggered, this, [this, index] { mnuFen_Click(index); });
  }
  connect(bouton("options"), &QAction::triggered, this, [this] { MenuGlobalFile(4); });
  connect(bouton("aide"), &QAction::triggered, this, [this] { mnuAide_Click(0); });
  connect(bouton("quitter"), &QAction::triggered, this, [this] { MenuGlobalFile(5); });
  QAction* manche = bouton("manche");
  manche->setCheckable(true);
  connect(manche, &QAction::triggered, this, [this](bool on) { setMancheVisible(on); });
}

void VT::load_resource() {
  m_imageList.clear();
  for (const char* nom : kImagesBarre)
    m_imageList.append(
        icôneBouton(QString::fromUtf8(nom), QString::fromUtf8(nom) == QStringLiteral("TB_MANCHE")));
  for (std::size_t i = 0; i < kBoutons.size(); ++i)
    m_boutons[i].second->setIcon(m_imageList[kBoutons[i].image - 1]);
  disponibilités();
}

void VT::libellésBarre() {
  for (std::size_t i = 0; i < kBoutons.size(); ++i) {
    // The options button's tooltip is the same word in both languages.
    const QString texte = kBoutons[i].tooltip ? sansAccélérateur(loadString(*kBoutons[i].tooltip))
                                              : QStringLiteral("Options");
    m_boutons[i].second->setText(texte);
    m_boutons[i].second->setToolTip(texte);
  }
}

QAction* VT::boutonBarre(const QString& clé) const {
  for (const auto& [k, a] : m_boutons)
    if (k == clé) return a;
  return nullptr;
}

// ---- Status bar ------------------------------------------------------------------

void VT::créeBarreEtat() {
  QStatusBar* barre = statusBar();
  m_panneauTexte = new QLabel(barre);
  m_panneauTexte->setObjectName(QStringLiteral("hint"));
  m_panneauTexte->setMinimumWidth(120);
  barre->addWidget(m_panneauTexte, 1);
  m_position = new PanneauStatut(QStringLiteral("position"), barre);
  m_position->setMinimumWidth(90);
  m_panneauGuitare = new PanneauStatut(QStringLiteral("guitare"), barre);
  m_midi = new PanneauStatut(QStringLiteral("midi"), barre);
  m_insert = new PanneauStatut(QStringLiteral("insert"), barre);
  m_insert->setMinimumWidth(44);
  for (QLabel* p : {static_cast<QLabel*>(m_position), static_cast<QLabel*>(m_panneauGuitare),
                    static_cast<QLabel*>(m_midi), static_cast<QLabel*>(m_insert)}) {
    p->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    barre->addPermanentWidget(p);
  }
  connect(m_panneauGuitare, &PanneauStatut::doubleClic, this,
          [this] { montreFenetre(fen::FAccordeur); });
  connect(m_midi, &PanneauStatut::doubleClic, this,
          [this] { montreOptions(QStringLiteral("KeyMidi")); });
  connect(m_insert, &PanneauStatut::doubleClic, this, [this] { toggleInsert(); });
}

QLabel* VT::panneau(const QString& clé) const {
  if (clé.isEmpty()) return m_panneauTexte;
  for (QLabel* p : {static_cast<QLabel*>(m_position), static_cast<QLabel*>(m_panneauGuitare),
                    static_cast<QLabel*>(m_midi), static_cast<QLabel*>(m_insert)})
    if (p->objectName() == clé) return p;
  return nullptr;
}

}  // namespace vt

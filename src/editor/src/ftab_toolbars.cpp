// The editor's seven toolbars: the commands (tbToolbar), the objects of a bar
// (tbGeneral), the effects, the rhythm, the attack and the nuance above the
// strip, and the tracks (tbPistes) on its right. A button does what its menu
// entry does, is available when that entry is and is down when it is
// checked; the track buttons are rebuilt with the tracks (ftab_pistes.cpp).
// Any toolbar can float in a window of its own (FTabToolBar) and dock again;
// which ones are hidden is kept in the settings.
#include <QAction>
#include <QBoxLayout>
#include <QMenu>
#include <QToolBar>
#include <algorithm>
#include <array>
#include <span>

#include "editor/ftab.h"
#include "ftab_toolbar.h"
#include "shell/icones.h"
#include "shell/vt.h"

namespace vt {

// A button of a toolbar.
struct BoutonBarre {
  const char* clé;    // nullptr for a separator
  const char* image;  // its picture in the resources
  int bulle;          // the tool tip's string
  const char* menu;   // the menu entry it stands for
  bool basculant;
  int touche = 0;  // a key of the strip it types instead, when not 0
};

namespace {

// tbToolbar, in its order.
constexpr std::array<BoutonBarre, 28> kCommandes{{
    {"nouveau", "TB_NOUVEAU", 1201, "mnuTabFile_0", false},
    {"ouvrir", "TB_OUVRIR", 1202, "mnuTabFile_1", false},
    {"enregistrer", "TB_ENREGISTRER", 1203, "mnuTabFile_2", false},
    {nullptr, nullptr, 0, nullptr, false},
    {"imprimer", "TB_IMPRIMER", 1204, "mnuTabFile_11", false},
    {"preview", "TB_PREVIEW", 1209, "mnuTabFile_12", false},
    {"pagesetup", "TB_PAGESETUP", 1233, "mnuTabFile_14", false},
    {"proprietes", "TB_PROPRIETES", 1205, "mnuTabEdit_13", false},
    {nullptr, nullptr, 0, nullptr, false},
    {"joue", "TB_JOUE", 1212, "mnuTabPlay_0", true},
    {"jouemarker", "TB_JOUEMARKER", 1300, "mnuTabPlay_3", true},
    {"arriere", "TB_ARRIERE", 1213, "mnuTabPlay_1", false},
    {"avant", "TB_AVANT", 1214, "mnuTabPlay_2", false},
    {"record", "TB_RECORD", 1310, "mnuTabPlay_10", true},
    {nullptr, nullptr, 0, nullptr, false},
    {"couper", "TB_COUPER", 1215, "mnuTabEdit_3", false},
    {"copier", "TB_COPIER", 1208, "mnuTabEdit_4", false},
    {"coller", "TB_COLLER", 1216, "mnuTabEdit_5", false},
    {"undo", "TB_UNDO", 1322, "mnuTabEdit_0", false},
    {"redo", "TB_REDO", 1323, "mnuTabEdit_1", false},
    {nullptr, nullptr, 0, nullptr, false},
    {"view_mode_1", "TB_VIEW_1", 1260, "mnuTabDisplay_0", true},
    {"view_mode_2", "TB_VIEW_2", 1261, "mnuTabDisplay_1", true},
    {"view_mode_3", "TB_VIEW_3", 1262, "mnuTabDisplay_2", true},
    {"view_mode_4", "TB_VIEW_4", 1281, "mnuTabDisplay_3", true},
    {"view_mode_triolet", "TB_VIEW_TRIOLET", 1282, "mnuTabDisplay_4", true},
    {"options", "TB_OPTIONS_TAB", 5154, "", false},
    {"redraw", "TB_REDRAW", 5155, "mnuTabDisplay_10", false},
}};

// tbGeneral: the objects of the cursor's bar; down when one stands at the cursor.
constexpr std::array<BoutonBarre, 6> kObjets{{
    {"texte", "TB_TEXTE", 5148, "mnuTabTool_4", true},
    {"accord", "TB_ACCORD_DIAGRAMME", 5149, "mnuTabTool_5", true},
    {"accordcreate", "TB_ACCORDCREATE", 5150, "mnuTabTool_6", false},
    {"signature", "TB_SIGNATURE", 5151, "mnuTabEdit_16", false},
    {"loop", "TB_LOOP", 5152, "mnuTabEdit_18", false},
    {"tempo", "TB_TEMPO", 5153, "mnuTabEdit_19", true},
}};

// tbEffet: a click types the effect's key on the strip.
constexpr std::array<BoutonBarre, 12> kEffets{{
    {"hammer-on", "TB_HAMMER", 5100, "mnuTabEffet_0", true, Qt::Key_H},
    {"pull-off", "TB_PULL", 5101, "mnuTabEffet_1", true, Qt::Key_P},
    {"slide up", "TB_SLIDEUP", 5102, "mnuTabEffet_2", true, Qt::Key_U},
    {"slide down", "TB_SLIDEDN", 5103, "mnuTabEffet_3", true, Qt::Key_D},
    {"vibrato", "TB_VIBRATO", 5104, "mnuTabEffet_4", true, Qt::Key_V},
    {"bendup", "TB_BENDUP", 5105, "mnuTabEffet_5", true, Qt::Key_B},
    {"bendupdn", "TB_BENDUPDN", 5106, "mnuTabEffet_6", true, Qt::Key_W},
    {"bendreturn", "TB_BENDRETURN", 5107, "mnuTabEffet_7", true, Qt::Key_C},
    {"benddn", "TB_BENDDN", 5108, "mnuTabEffet_8", true, Qt::Key_N},
    {"tremolo", "TB_TREMOLO", 5109, "mnuTabEffet_9", true, Qt::Key_K},
    {"trill", "TB_TRILL", 5110, "mnuTabEffet_10", true, Qt::Key_T},
    {"liaison", "TB_LIAISON", 5111, "mnuTabEffet_11", true, Qt::Key_L},
}};

// tbRythme: six lengths in one group, the dot and the triplet toggled.
constexpr std::array<BoutonBarre, 8> kRythmes{{
    {"ronde", "TB_RONDE", 5132, "mnuTabToolRythme_0", true},
    {"blanche", "TB_BLANCHE", 5133, "mnuTabToolRythme_1", true},
    {"noire", "TB_NOIRE", 5134, "mnuTabToolRythme_2", true},
    {"croche", "TB_CROCHE", 5135, "mnuTabToolRythme_3", true},
    {"double", "TB_DOUBLE", 5136, "mnuTabToolRythme_4", true},
    {"triple", "TB_TRIPLE", 5137, "mnuTabToolRythme_5", true},
    {"pointée", "TB_POINTEE", 5138, "mnuTabToolRythme_7", true},
    {"triolet", "TB_TRIOLET", 5139, "mnuTabToolRythme_8", true},
}};

constexpr std::array<BoutonBarre, 12> kAttaques{{
    {"attaque none", "TA_NONE", 5112, "mnuTabToolAttaque_0", true},
    {"attaque tap", "TA_TAP", 5113, "mnuTabToolAttaque_1", true},
    {"attaque slap", "TA_SLAP", 5114, "mnuTabToolAttaque_2", true},
    {"attaque pop", "TA_POP", 5115, "mnuTabToolAttaque_3", true},
    {"attaque harm", "TA_HARM", 5116, "mnuTabToolAttaque_4", true},
    {"attaque ah", "TA_AH", 5117, "mnuTabToolAttaque_5", true},
    {"attaque up", "TA_UP", 5118, "mnuTabToolAttaque_6", true},
    {"attaque dn", "TA_DN", 5119, "mnuTabToolAttaque_7", true},
    {"attaque dead note", "TA_DEAD", 5120, "mnuTabToolAttaque_8", true},
    {"attaque palmmute", "TA_PALMMUTE", 5121, "mnuTabToolAttaque_9", true},
    {"attaque brush up", "TA_BRUSHUP", 5122, "mnuTabToolAttaque_10", true},
    {"attaque brush dn", "TA_BRUSHDN", 5123, "mnuTabToolAttaque_11", true},
}};

constexpr std::array<BoutonBarre, 8> kNuances{{
    {"ppp", "TB_PPP", 5140, "mnuTabToolVolume_0", true},
    {"pp", "TB_PP", 5141, "mnuTabToolVolume_1", true},
    {"p", "TB_P", 5142, "mnuTabToolVolume_2", true},
    {"mp", "TB_MP", 5143, "mnuTabToolVolume_3", true},
    {"mf", "TB_MF", 5144, "mnuTabToolVolume_4", true},
    {"f", "TB_F", 5145, "mnuTabToolVolume_5", true},
    {"ff", "TB_FF", 5146, "mnuTabToolVolume_6", true},
    {"fff", "TB_FFF", 5147, "mnuTabToolVolume_7", true},
}};

// The three fixed buttons of tbPistes, at indices 1 to 3; 4 is a separator.
constexpr std::array<BoutonBarre, 3> kPistes{{
    {"add", "TB_ADD", 5128, "mnutabPistes_1", false},
    {"remove", "TB_REMOVE", 5129, "mnutabPistes_2", false},
    {"properties", "TB_PROPRIETES_PISTE", 5131, "mnutabPistes_3", false},
}};

// The toolbars by the index of mnuTabDisplayToolbar, with the string of its caption.
struct Barre {
  const char* nom;
  int titre;
};
constexpr std::array<Barre, 7> kBarres{{
    {"tbGeneral", 1311},
    {"tbAttaque", 1312},
    {"tbRythme", 1313},
    {"tbEffet", 1314},
    {"tbVolume", 1315},
    {"tbToolbar", 1317},
    {"tbPistes", 1326},
}};

QString texte(const char* c) {
  return QString::fromUtf8(c);
}

bool boutonDeJeu(const QString& c) {
  return c == QStringLiteral("joue") || c == QStringLiteral("jouemarker") ||
         c == QStringLiteral("record");
}
}  // namespace

QToolBar* FTab::barre(const QString& nom) const {
  const auto it = m_barres.find(nom);
  return it == m_barres.end() ? nullptr : it->second;
}

QAction* FTab::bouton(const QString& nomBarre, const QString& c) const {
  const auto it = m_boutons.find(nomBarre + QLatin1Char('/') + c);
  return it == m_boutons.end() ? nullptr : it->second;
}

QAction* FTab::ajouteBouton(QToolBar* b, const QString& c, const QString& image, bool basculant) {
  QAction* a = b->addAction(icôneBouton(image, basculant), QString());
  a->setObjectName(b->objectName() + QLatin1Char('_') + c);
  a->setCheckable(basculant);
  m_boutons[b->objectName() + QLatin1Char('/') + c] = a;
  return a;
}

QToolBar* FTab::créeBarre(const QString& nom, const BoutonBarre* boutons, std::size_t n) {
  auto* b = new QToolBar(this);
  b->setObjectName(nom);
  b->setIconSize(QSize(24, 24));
  b->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(b, &QWidget::customContextMenuRequested, this,
          [this, nom](const QPoint& où) { menuBarre(nom, barre(nom)->mapToGlobal(où)); });
  m_barres[nom] = b;
  for (const BoutonBarre& d : std::span(boutons, n)) {
    if (d.clé == nullptr) {
      b->addSeparator();
      continue;
    }
    const QString c = texte(d.clé);
    QAction* a = ajouteBouton(b, c, texte(d.image), d.basculant);
    m_bulles.push_back({a, d.bulle, {}});
    m_boutonsMenus.emplace_back(a, texte(d.menu));
    // The play buttons belong to playback (connecteJeu).
    if (boutonDeJeu(c)) continue;
    // The options open on the editor's own page; no menu entry stands for it.
    if (c == QStringLiteral("options")) {
      connect(a, &QAction::triggered, this,
              [this] { m_vt.montreOptions(QStringLiteral("KeyTab")); });
      continue;
    }
    const QString menu = texte(d.menu);
    const int touche = d.touche;
    connect(a, &QAction::triggered, this, [this, a, menu, touche] {
      // A button's state is its entry's: the command sets it.
      if (a->isCheckable()) a->setChecked(!a->isChecked());
      if (touche != 0) {
        picTab_KeyDown(touche, Qt::NoModifier);
        picTab_KeyUp(touche, Qt::NoModifier);
      } else if (QAction* e = entrée(menu)) {
        e->trigger();
      }
      boutonsSuiventMenus();
    });
  }
  return b;
}

void FTab::créeBarres() {
  créeBarre(QStringLiteral("tbToolbar"), kCommandes.data(), kCommandes.size());
  créeBarre(QStringLiteral("tbGeneral"), kObjets.data(), kObjets.size());
  créeBarre(QStringLiteral("tbEffet"), kEffets.data(), kEffets.size());
  créeBarre(QStringLiteral("tbRythme"), kRythmes.data(), kRythmes.size());
  créeBarre(QStringLiteral("tbAttaque"), kAttaques.data(), kAttaques.size());
  créeBarre(QStringLiteral("tbVolume"), kNuances.data(), kNuances.size());
  QToolBar* pistes = créeBarre(QStringLiteral("tbPistes"), kPistes.data(), kPistes.size());
  pistes->setOrientation(Qt::Vertical);
  pistes->addSeparator();
}

QLayout* FTab::rangéesBarres() {
  // Three rows above the strip: the commands; the objects and the effects;
  // the rhythm, the attack and the nuance.
  auto* pile = new QVBoxLayout;
  pile->setContentsMargins(0, 0, 0, 0);
  pile->setSpacing(0);
  for (const auto& rangée :
       {std::vector<const char*>{"tbToolbar"}, std::vector<const char*>{"tbGeneral", "tbEffet"},
        std::vector<const char*>{"tbRythme", "tbAttaque", "tbVolume"}}) {
    auto* ligne = new QHBoxLayout;
    ligne->setContentsMargins(0, 0, 0, 0);
    ligne->setSpacing(6);
    for (const char* nom : rangée)
      ligne->addWidget(barre(texte(nom)));
    ligne->addStretch(1);
    pile->addLayout(ligne);
  }
  return pile;
}

void FTab::bullesBarres() {
  for (const Libellé& l : m_bulles)
    l.action->setToolTip(m_vt.loadString(l.texte));
  for (const Barre& b : kBarres)
    if (FTabToolBar* f = Find_tabFloatingToolBars(texte(b.nom)))
      f->setWindowTitle(m_vt.loadString(b.titre).remove(QLatin1Char('&')));
}

void FTab::boutonsSuiventMenus() {
  for (const auto& [a, menu] : m_boutonsMenus) {
    const QAction* e = entrée(menu);
    if (e == nullptr) continue;
    a->setEnabled(e->isEnabled());
    // The play buttons keep their own state; the objects show the bar's.
    const QString c = a->objectName().section(QLatin1Char('_'), 1);
    if (a->isCheckable() && e->isCheckable() && !boutonDeJeu(c)) a->setChecked(e->isChecked());
  }
}

void FTab::tbUpdateGeneral() {
  const CVantoroTablature& d = doc();
  const int p = piste();
  const int m = d.CurseurMesure();
  const int x = d.CurseurX();
  const auto montre = [this](const char* c, bool oui) {
    if (QAction* a = bouton(QStringLiteral("tbGeneral"), texte(c))) a->setChecked(oui);
  };
  montre("accord", d.searchMesureAccord(p, m, x) > 0);
  montre("texte",
         d.searchMesureTexte(p, m, x, kVrai) > 0 || d.searchMesureTexte(p, m, x, kFaux) > 0);
  montre("tempo", d.searchMesureTempo(m, x) > 0);
}

// ---- Shown, hidden, floating ------------------------------------------------------

void FTab::mnuTabDisplayToolbar(int index) {
  if (index < 0 || index >= static_cast<int>(kBarres.size())) return;
  const QString nom = texte(kBarres[static_cast<std::size_t>(index)].nom);
  montreBarre(nom, !barreMontrée(nom));
}

bool FTab::barreMontrée(const QString& nom) const {
  if (const FTabToolBar* f = Find_tabFloatingToolBars(nom)) return f->isVisible();
  const QToolBar* b = barre(nom);
  return b != nullptr && !b->isHidden();
}

void FTab::montreBarre(const QString& nom, bool oui) {
  if (FTabToolBar* f = Find_tabFloatingToolBars(nom)) {
    f->setVisible(oui);
  } else if (QToolBar* b = barre(nom)) {
    b->setVisible(oui);
  }
  // The hidden ones are remembered by name.
  QStringList cachées =
      m_vt.settings().cfgTabBarresCachées.split(QLatin1Char(','), Qt::SkipEmptyParts);
  cachées.removeAll(nom);
  if (!oui) cachées << nom;
  m_vt.settings().cfgTabBarresCachées = cachées.join(QLatin1Char(','));
  marquesBarres();
}

void FTab::marquesBarres() {
  for (std::size_t i = 0; i < kBarres.size(); ++i)
    if (QAction* a = entrée(QStringLiteral("mnuTabDisplayToolbar_%1").arg(i)))
      a->setChecked(barreMontrée(texte(kBarres[i].nom)));
}

void FTab::barresDesRéglages() {
  const QStringList cachées =
      m_vt.settings().cfgTabBarresCachées.split(QLatin1Char(','), Qt::SkipEmptyParts);
  for (const Barre& b : kBarres)
    barre(texte(b.nom))->setVisible(!cachées.contains(texte(b.nom)));
  marquesBarres();
}

void FTab::menuBarre(const QString& nom, const QPoint& où) {
  QMenu menu(this);
  const bool flotte = Find_tabFloatingToolBars(nom) != nullptr;
  QAction* a = menu.addAction(m_vt.loadString(flotte ? 5157 : 5156));
  if (menu.exec(où) != a) return;
  if (flotte) {
    Find_tabFloatingToolBars(nom)->close();
  } else {
    détacheBarre(nom);
  }
}

FTabToolBar* FTab::Find_tabFloatingToolBars(const QString& nom) const {
  for (FTabToolBar* f : m_tabFloatingToolBars)
    if (f != nullptr && f->FloatingToolbar() == nom) return f;
  return nullptr;
}

int FTab::Find_FreeIndex4tabFloatingToolBars() {
  for (std::size_t i = 0; i < m_tabFloatingToolBars.size(); ++i)
    if (m_tabFloatingToolBars[i] == nullptr) return static_cast<int>(i);
  m_tabFloatingToolBars.push_back(nullptr);
  return static_cast<int>(m_tabFloatingToolBars.size()) - 1;
}

void FTab::Update_FloatingToolBar(const QString& nom) {
  if (FTabToolBar* f = Find_tabFloatingToolBars(nom)) f->tbUpdateToolbar();
}

FTabToolBar* FTab::détacheBarre(const QString& nom) {
  if (FTabToolBar* f = Find_tabFloatingToolBars(nom)) return f;
  QToolBar* b = barre(nom);
  if (b == nullptr) return nullptr;
  const auto titre = std::find_if(kBarres.begin(), kBarres.end(),
                                  [&](const Barre& x) { return texte(x.nom) == nom; });
  const QString légende =
      titre != kBarres.end() ? m_vt.loadString(titre->titre).remove(QLatin1Char('&')) : nom;
  const int i = Find_FreeIndex4tabFloatingToolBars();
  // A tool window of the main window, which it stays above.
  auto* f = new FTabToolBar(b, légende, window());
  f->setAttribute(Qt::WA_DeleteOnClose);
  f->barre()->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(f->barre(), &QWidget::customContextMenuRequested, this,
          [this, nom, f](const QPoint& où) { menuBarre(nom, f->barre()->mapToGlobal(où)); });
  connect(f, &FTabToolBar::fermee, this, [this, nom, i] {
    // Docked again, in its place and shown.
    m_tabFloatingToolBars[static_cast<std::size_t>(i)] = nullptr;
    if (QToolBar* d = barre(nom)) d->setVisible(true);
    montreBarre(nom, true);
  });
  m_tabFloatingToolBars[static_cast<std::size_t>(i)] = f;
  const bool montrée = !b->isHidden();
  b->hide();
  f->move(mapToGlobal(QPoint(40, 40)));
  f->setVisible(montrée);
  return f;
}

}  // namespace vt

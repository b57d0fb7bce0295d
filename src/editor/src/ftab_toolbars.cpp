// The editor's toolbars: the commands (tbToolbar) above the strip, the tracks
// (tbPistes) standing on its right. A button does what its menu entry does
// and is available when that entry is; the track buttons are rebuilt with the
// tracks (ftab_pistes.cpp).
#include <QAction>
#include <QToolBar>
#include <array>

#include "editor/ftab.h"
#include "shell/icones.h"
#include "shell/vt.h"

namespace vt {

namespace {
struct BoutonCommande {
  const char* clé;
  const char* image;
  int bulle;         // the tool tip's string
  const char* menu;  // the menu entry it stands for; nullptr for none
  bool basculant;
};

// tbToolbar, in its order. A null key is a separator.
constexpr std::array<BoutonCommande, 27> kBoutonsCommandes{{
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
    {"redraw", "TB_REDRAW", 5155, "mnuTabDisplay_10", false},
}};

// The three fixed buttons of tbPistes, at indices 1 to 3; 4 is a separator.
struct BoutonPiste {
  const char* clé;
  const char* image;
  int bulle;
};
constexpr std::array<BoutonPiste, 3> kBoutonsPistes{{
    {"add", "TB_ADD", 5128},
    {"remove", "TB_REMOVE", 5129},
    {"properties", "TB_PROPRIETES_PISTE", 5131},
}};

QString clé(const char* c) {
  return QString::fromUtf8(c);
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

void FTab::créeBarres() {
  auto* commandes = new QToolBar(this);
  commandes->setObjectName(QStringLiteral("tbToolbar"));
  commandes->setIconSize(QSize(24, 24));
  m_barres[commandes->objectName()] = commandes;
  for (const BoutonCommande& b : kBoutonsCommandes) {
    if (b.clé == nullptr) {
      commandes->addSeparator();
      continue;
    }
    QAction* a = ajouteBouton(commandes, clé(b.clé), clé(b.image), b.basculant);
    m_bulles.push_back({a, b.bulle, {}});
    // The play buttons belong to playback (connecteJeu); the others do what
    // their menu entry does.
    const QString c = clé(b.clé);
    if (c == QStringLiteral("joue") || c == QStringLiteral("jouemarker") ||
        c == QStringLiteral("record"))
      continue;
    const QString menu = clé(b.menu);
    connect(a, &QAction::triggered, this, [this, a, menu] {
      if (QAction* e = entrée(menu)) {
        // A toggle's state is the menu's: the command sets it.
        if (a->isCheckable()) a->setChecked(!a->isChecked());
        e->trigger();
      }
    });
  }

  auto* pistes = new QToolBar(this);
  pistes->setObjectName(QStringLiteral("tbPistes"));
  pistes->setOrientation(Qt::Vertical);
  pistes->setIconSize(QSize(24, 24));
  m_barres[pistes->objectName()] = pistes;
  for (std::size_t i = 0; i < kBoutonsPistes.size(); ++i) {
    const BoutonPiste& b = kBoutonsPistes[i];
    QAction* a = ajouteBouton(pistes, clé(b.clé), clé(b.image), false);
    m_bulles.push_back({a, b.bulle, {}});
    const int index = static_cast<int>(i) + 1;
    connect(a, &QAction::triggered, this, [this, index] { mnutabPistes(index); });
  }
  pistes->addSeparator();
}

void FTab::bullesBarres() {
  for (const Libellé& l : m_bulles)
    l.action->setToolTip(m_vt.loadString(l.texte));
}

void FTab::boutonsSuiventMenus() {
  for (const BoutonCommande& b : kBoutonsCommandes) {
    if (b.clé == nullptr) continue;
    QAction* a = bouton(QStringLiteral("tbToolbar"), clé(b.clé));
    const QAction* e = entrée(clé(b.menu));
    if (a == nullptr || e == nullptr) continue;
    a->setEnabled(e->isEnabled());
    // The view buttons show the view; the play buttons keep their own state.
    if (QString(clé(b.menu)).startsWith(QStringLiteral("mnuTabDisplay")) && a->isCheckable())
      a->setChecked(e->isChecked());
  }
  for (std::size_t i = 0; i < kBoutonsPistes.size(); ++i) {
    QAction* a = bouton(QStringLiteral("tbPistes"), clé(kBoutonsPistes[i].clé));
    if (const QAction* e = entrée(QStringLiteral("mnutabPistes_%1").arg(i + 1)))
      a->setEnabled(e->isEnabled());
  }
}

}  // namespace vt

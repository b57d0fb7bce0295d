#include "faide.h"

#include <QCloseEvent>
#include <QHeaderView>
#include <QLabel>
#include <QStyle>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <map>

#include "help_contents.h"
#include "shell/vt.h"

namespace vt {

namespace {

constexpr int kRôleClé = Qt::UserRole;
constexpr int kRôleCible = Qt::UserRole + 1;

const QString kOutil = QStringLiteral("tool:");
const QString kCommande = QStringLiteral("command:");

// The windows a "tool:" topic names, by the names the contents use.
const QString* fenetreNommée(const QString& nom) {
  static const std::map<QString, const QString*> noms = {
      {fen::FAccords, &fen::FAccords},
      {fen::FGammes, &fen::FGammes},
      {fen::FHarmony, &fen::FHarmony},
      {fen::FAccordeur, &fen::FAccordeur},
      {fen::FMetronome, &fen::FMetronome},
      {fen::FMultimedia, &fen::FMultimedia},
      {fen::FTab, &fen::FTab},
  };
  const auto it = noms.find(nom);
  return it == noms.end() ? nullptr : it->second;
}

}  // namespace

FAide::FAide(VT& vt) : m_vt(vt) {
  auto* pile = new QVBoxLayout(this);
  pile->setContentsMargins(4, 4, 4, 4);
  m_conseil = new QLabel(this);
  m_conseil->setWordWrap(true);
  m_arbre = new QTreeWidget(this);
  m_arbre->setObjectName(QStringLiteral("tvAide"));
  m_arbre->setHeaderHidden(true);
  m_arbre->setRootIsDecorated(true);
  m_arbre->setIconSize(QSize(16, 16));
  pile->addWidget(m_conseil);
  pile->addWidget(m_arbre, 1);
  connect(m_arbre, &QTreeWidget::itemActivated, this,
          [this](QTreeWidgetItem* item) { activeSujet(item); });
  // A book shows itself open or closed.
  auto livre = [this](QTreeWidgetItem* item, bool ouvert) {
    item->setIcon(
        0, style()->standardIcon(ouvert ? QStyle::SP_DirOpenIcon : QStyle::SP_DirClosedIcon));
  };
  connect(m_arbre, &QTreeWidget::itemExpanded, this,
          [livre](QTreeWidgetItem* i) { livre(i, true); });
  connect(m_arbre, &QTreeWidget::itemCollapsed, this,
          [livre](QTreeWidgetItem* i) { livre(i, false); });
  resize(270, 420);
  load_lang();
}

void FAide::load_lang() {
  m_vt.setStatusText(0);
  setWindowTitle(m_vt.loadString(58));
  m_conseil->setText(m_vt.loadString(59));
  m_arbre->clear();
  std::map<QString, QTreeWidgetItem*> parKey;
  for (const SujetAide& s : lisSommaire(m_vt.dossierAide() + QStringLiteral("contents.txt"))) {
    const auto parent = parKey.find(s.parent());
    QTreeWidgetItem* item =
        parent == parKey.end() ? new QTreeWidgetItem(m_arbre) : new QTreeWidgetItem(parent->second);
    item->setText(0, s.titre);
    item->setData(0, kRôleClé, s.clé);
    item->setData(0, kRôleCible, s.cible);
    if (s.cible.startsWith(kOutil) || s.cible.startsWith(kCommande)) {
      item->setIcon(0, style()->standardIcon(QStyle::SP_DialogHelpButton));
      // A tool this build does not have is shown, but cannot be opened.
      const QString* fenetre = fenetreNommée(s.cible.mid(kOutil.size()));
      const bool disponible =
          !s.cible.startsWith(kOutil) || (fenetre && m_vt.fenetres().estDisponible(*fenetre));
      const bool options = s.cible == kCommande + QStringLiteral("options");
      if (!disponible || (options && !m_vt.fenetres().estDisponible(fen::FOptions)))
        item->setDisabled(true);
    } else if (!s.cible.isEmpty()) {
      item->setIcon(0, style()->standardIcon(QStyle::SP_FileIcon));
    }
    parKey[s.clé] = item;
  }
  // Books: every topic that holds others.
  for (const auto& [clé, item] : parKey) {
    if (item->childCount() > 0) item->setIcon(0, style()->standardIcon(QStyle::SP_DirClosedIcon));
  }
}

QTreeWidgetItem* FAide::trouve(const QString& clé) const {
  for (QTreeWidgetItemIterator it(m_arbre); *it; ++it)
    if ((*it)->data(0, kRôleClé).toString() == clé) return *it;
  return nullptr;
}

bool FAide::active(const QString& clé) {
  QTreeWidgetItem* item = trouve(clé);
  if (!item || item->isDisabled()) return false;
  const QString cible = item->data(0, kRôleCible).toString();
  if (cible.isEmpty()) return false;
  if (cible.startsWith(kOutil)) {
    if (const QString* f = fenetreNommée(cible.mid(kOutil.size()))) return m_vt.montreFenetre(*f);
    return false;
  }
  if (cible == kCommande + QStringLiteral("options")) {
    m_vt.MenuGlobalFile(4);
    return true;
  }
  if (cible == kCommande + QStringLiteral("tip")) {
    m_vt.montreAstuce();
    return true;
  }
  if (cible.startsWith(kCommande)) return false;
  m_vt.montreAide(cible);
  return true;
}

void FAide::activeSujet(QTreeWidgetItem* item) {
  if (item) active(item->data(0, kRôleClé).toString());
}

void FAide::closeEvent(QCloseEvent* e) {
  m_vt.settings().setLoadHelpAccessWndAtStartup = kFaux;
  QWidget::closeEvent(e);
}

}  // namespace vt

#include "faide_navigateur.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRegularExpression>
#include <QSplitter>
#include <QStyle>
#include <QTextBrowser>
#include <QTextDocumentFragment>
#include <QToolBar>
#include <QVBoxLayout>

#include "shell/textes.h"
#include "shell/vt.h"

namespace vt {

namespace {

struct Page {
  QString titre;
  QString texte;
};

Page lisPage(const QString& chemin) {
  QFile f(chemin);
  if (!f.open(QIODevice::ReadOnly)) return {};
  const QString html = QString::fromUtf8(f.readAll());
  static const QRegularExpression titre(
      QStringLiteral("<title>(.*?)</title>"),
      QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
  const auto m = titre.match(html);
  return {m.hasMatch() ? m.captured(1).trimmed() : QFileInfo(chemin).baseName(),
          QTextDocumentFragment::fromHtml(html).toPlainText()};
}

}  // namespace

FAideNavigateur::FAideNavigateur(VT& vt, QWidget* parent)
    : QWidget(parent ? parent : &vt, Qt::Window), m_vt(vt) {
  setObjectName(QStringLiteral("FAideNavigateur"));
  setAttribute(Qt::WA_QuitOnClose, false);

  auto* barre = new QToolBar(this);
  m_précédente = barre->addAction(style()->standardIcon(QStyle::SP_ArrowBack), QString());
  m_suivante = barre->addAction(style()->standardIcon(QStyle::SP_ArrowForward), QString());
  m_sommaire = barre->addAction(style()->standardIcon(QStyle::SP_DirHomeIcon), QString());
  barre->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);

  m_pages = new QTextBrowser(this);
  m_pages->setObjectName(QStringLiteral("pages"));
  m_pages->setOpenExternalLinks(true);
  connect(m_précédente, &QAction::triggered, m_pages, &QTextBrowser::backward);
  connect(m_suivante, &QAction::triggered, m_pages, &QTextBrowser::forward);
  connect(m_sommaire, &QAction::triggered, this,
          [this] { montrePage(QStringLiteral("index.html")); });
  connect(m_pages, &QTextBrowser::backwardAvailable, m_précédente, &QAction::setEnabled);
  connect(m_pages, &QTextBrowser::forwardAvailable, m_suivante, &QAction::setEnabled);
  connect(m_pages, &QTextBrowser::sourceChanged, this, [this] {
    setWindowTitle(m_vt.loadString(33) + QStringLiteral(" - ") + m_pages->documentTitle());
  });
  m_précédente->setEnabled(false);
  m_suivante->setEnabled(false);

  auto* côté = new QWidget(this);
  auto* pileCôté = new QVBoxLayout(côté);
  pileCôté->setContentsMargins(0, 0, 0, 0);
  m_libelléRecherche = new QLabel(côté);
  m_recherche = new QLineEdit(côté);
  m_recherche->setObjectName(QStringLiteral("recherche"));
  m_recherche->setClearButtonEnabled(true);
  m_résultats = new QListWidget(côté);
  pileCôté->addWidget(m_libelléRecherche);
  pileCôté->addWidget(m_recherche);
  pileCôté->addWidget(m_résultats, 1);
  connect(m_recherche, &QLineEdit::returnPressed, this, [this] { recherche(m_recherche->text()); });
  connect(m_résultats, &QListWidget::itemActivated, this, [this](QListWidgetItem* item) {
    const QString page = item->data(Qt::UserRole).toString();
    if (!page.isEmpty()) montrePage(page);
  });

  auto* partage = new QSplitter(this);
  partage->addWidget(côté);
  partage->addWidget(m_pages);
  partage->setStretchFactor(1, 1);
  partage->setSizes({200, 600});

  auto* pile = new QVBoxLayout(this);
  pile->setContentsMargins(0, 0, 0, 0);
  pile->setSpacing(0);
  pile->addWidget(barre);
  pile->addWidget(partage, 1);
  resize(860, 620);
  load_lang();
}

void FAideNavigateur::montrePage(const QString& page) {
  const qsizetype dièse = page.indexOf(QLatin1Char('#'));
  const QString fichier = dièse < 0 ? page : page.left(dièse);
  QUrl url = QUrl::fromLocalFile(m_vt.dossierAide() + fichier);
  if (dièse >= 0) url.setFragment(page.mid(dièse + 1));
  m_pages->setSource(url);
}

void FAideNavigateur::cherche() {
  m_recherche->setFocus();
  m_recherche->selectAll();
}

QStringList FAideNavigateur::recherche(const QString& texte) {
  m_résultats->clear();
  QStringList trouvées;
  const QStringList mots =
      texte.split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts);
  if (mots.isEmpty()) return trouvées;
  const QDir dossier(m_vt.dossierAide());
  for (const QString& nom :
       dossier.entryList({QStringLiteral("*.html")}, QDir::Files, QDir::Name)) {
    const Page p = lisPage(dossier.filePath(nom));
    bool tous = true;
    for (const QString& mot : mots)
      tous = tous && p.texte.contains(mot, Qt::CaseInsensitive);
    if (!tous) continue;
    auto* item = new QListWidgetItem(p.titre, m_résultats);
    item->setData(Qt::UserRole, nom);
    trouvées.append(nom);
  }
  if (trouvées.isEmpty()) {
    auto* rien = new QListWidgetItem(m_vt.loadString(76).arg(texte), m_résultats);
    rien->setFlags(Qt::NoItemFlags);
  }
  return trouvées;
}

void FAideNavigateur::load_lang() {
  setWindowTitle(m_vt.loadString(33));
  m_précédente->setText(m_vt.loadString(72));
  m_suivante->setText(m_vt.loadString(73));
  m_sommaire->setText(m_vt.loadString(74));
  m_libelléRecherche->setText(m_vt.loadString(75));
  m_recherche->setPlaceholderText(sansAccélérateur(m_vt.loadString(32)));
  // Both languages have the same pages: stay on this one.
  const QUrl actuelle = m_pages->source();
  if (actuelle.isLocalFile()) {
    QString page = QFileInfo(actuelle.toLocalFile()).fileName();
    if (actuelle.hasFragment()) page += QLatin1Char('#') + actuelle.fragment();
    montrePage(page);
  }
  if (!m_recherche->text().isEmpty()) recherche(m_recherche->text());
}

}  // namespace vt

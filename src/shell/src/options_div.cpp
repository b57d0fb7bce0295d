// The options' general page: what shows at start, the main window's bars, the
// fretboard's look and hand, and the skin.
#include <QCheckBox>
#include <QDir>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QStatusBar>
#include <QToolBar>
#include <QVBoxLayout>

#include "options_pages.h"
#include "shell/skin.h"
#include "shell/vt.h"

namespace vt {

namespace {

// The windows of setStartWith, in its order: the start page's captions.
constexpr std::array<StringId, 7> kFenêtresDémarrage = {
    StringId{401}, StringId{402}, StringId{403}, StringId{404},
    StringId{406}, StringId{405}, StringId{410},
};

QCheckBox* caseACocher(QWidget* parent, const char* nom) {
  auto* c = new QCheckBox(parent);
  c->setObjectName(QString::fromUtf8(nom));
  return c;
}

}  // namespace

PageDiv::PageDiv(VT& vt, QWidget* parent) : QWidget(parent), m_vt(vt) {
  setObjectName(QStringLiteral("KeyDiv"));
  chkDémarrage = caseACocher(this, "chkDémarrage");
  chkBarreOutils = caseACocher(this, "chkBarreOutils");
  chkBarreEtat = caseACocher(this, "chkBarreEtat");
  chkTipOfDay = caseACocher(this, "chkTipOfDay");
  // The two bars follow their boxes at once, before OK.
  connect(chkBarreOutils, &QCheckBox::clicked, this,
          [this](bool oui) { m_vt.toolbar()->setVisible(oui); });
  connect(chkBarreEtat, &QCheckBox::clicked, this,
          [this](bool oui) { m_vt.statusBar()->setVisible(oui); });

  m_fraDémarrage = new QGroupBox(this);
  auto* grilleDémarrage = new QGridLayout(m_fraDémarrage);
  for (std::size_t i = 0; i < chkStarWith.size(); ++i) {
    chkStarWith[i] = new QCheckBox(m_fraDémarrage);
    chkStarWith[i]->setObjectName(QStringLiteral("chkStarWith%1").arg(i));
    const int n = static_cast<int>(i);
    grilleDémarrage->addWidget(chkStarWith[i], n % 4, n / 4);
  }

  m_fraManche = new QGroupBox(this);
  auto* pileManche = new QVBoxLayout(m_fraManche);
  optManche = groupeOptions<3>(m_fraManche, grpManche, "optManche");
  for (QRadioButton* o : optManche)
    pileManche->addWidget(o);

  m_fraMain = new QGroupBox(this);
  auto* pileMain = new QVBoxLayout(m_fraMain);
  optMancheHand = groupeOptions<2>(m_fraMain, grpMancheHand, "optMancheHand");
  for (QRadioButton* o : optMancheHand)
    pileMain->addWidget(o);
  pileMain->addStretch(1);

  m_labSkin = new QLabel(this);
  lstSkin = new QListWidget(this);
  lstSkin->setObjectName(QStringLiteral("lstSkin"));
  lstSkin->setMaximumHeight(90);
  m_labSkin->setBuddy(lstSkin);

  auto* grille = new QGridLayout(this);
  grille->addWidget(chkDémarrage, 0, 0, 1, 2);
  grille->addWidget(chkTipOfDay, 1, 0, 1, 2);
  grille->addWidget(chkBarreOutils, 2, 0, 1, 2);
  grille->addWidget(chkBarreEtat, 3, 0, 1, 2);
  grille->addWidget(m_fraDémarrage, 4, 0, 1, 2);
  grille->addWidget(m_fraManche, 5, 0);
  grille->addWidget(m_fraMain, 5, 1);
  grille->addWidget(m_labSkin, 6, 0, 1, 2);
  grille->addWidget(lstSkin, 7, 0, 1, 2);
  grille->setRowStretch(8, 1);
}

void PageDiv::load_lang() {
  chkDémarrage->setText(m_vt.loadString(1105));
  chkBarreOutils->setText(m_vt.loadString(1106));
  chkBarreEtat->setText(m_vt.loadString(1107));
  chkTipOfDay->setText(m_vt.loadString(1108));
  m_fraDémarrage->setTitle(m_vt.loadString(1109));
  for (std::size_t i = 0; i < chkStarWith.size(); ++i)
    chkStarWith[i]->setText(m_vt.loadString(kFenêtresDémarrage[i]));
  m_fraManche->setTitle(m_vt.loadString(1110));
  optManche[0]->setText(m_vt.loadString(1111));
  optManche[1]->setText(m_vt.loadString(1112));
  optManche[2]->setText(m_vt.loadString(1113));
  m_fraMain->setTitle(m_vt.loadString(1114));
  optMancheHand[0]->setText(m_vt.loadString(1194));
  optMancheHand[1]->setText(m_vt.loadString(1115));
  m_labSkin->setText(m_vt.loadString(1116));
}

void PageDiv::remplitSkins() {
  lstSkin->clear();
  // A folder with only some of the pictures is a skin too: the others come
  // from the default one.
  const QDir dossier(m_vt.strAppPath() + QStringLiteral("skins"));
  lstSkin->addItems(dossier.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name));
}

QString PageDiv::skin() const {
  const QListWidgetItem* item = lstSkin->currentItem();
  return item ? item->text() : QString();
}

void PageDiv::choisitSkin(const QString& nom) {
  for (const QString& n : {nom, QString::fromUtf8(kSkinParDéfaut)}) {
    const QList<QListWidgetItem*> trouvés = lstSkin->findItems(n, Qt::MatchExactly);
    if (!trouvés.isEmpty()) {
      lstSkin->setCurrentItem(trouvés.front());
      return;
    }
  }
  lstSkin->setCurrentRow(lstSkin->count() > 0 ? 0 : -1);
}

}  // namespace vt

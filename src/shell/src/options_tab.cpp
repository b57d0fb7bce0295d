// The options' tablature page: the editor's colours and digits, the folder of
// the last tablature, the staff's place, the screen layout and the ASCII width.
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QSlider>
#include <QVBoxLayout>

#include "options_pages.h"
#include "shell/foptions.h"
#include "shell/vt.h"

namespace vt {

namespace {

// The colours the restore brings back: cursor, notes, lines.
constexpr std::array<lng, 3> kCouleursParDéfaut = {16777087, 0, 0};

// A swatch of the colour for the button's face.
QIcon échantillon(const QColor& c) {
  QPixmap p(28, 16);
  p.fill(c);
  QPainter g(&p);
  g.setPen(QColor(0x40, 0x40, 0x40));
  g.drawRect(0, 0, p.width() - 1, p.height() - 1);
  return QIcon(p);
}

}  // namespace

PageTab::PageTab(FOptions& options, QWidget* parent) : QWidget(parent), m_options(options) {
  setObjectName(QStringLiteral("KeyTab"));

  m_fraCouleurs = new QGroupBox(this);
  auto* ligneCouleurs = new QHBoxLayout(m_fraCouleurs);
  for (std::size_t i = 0; i < btnTab.size(); ++i) {
    btnTab[i] = new QPushButton(m_fraCouleurs);
    btnTab[i]->setObjectName(QStringLiteral("btnTab%1").arg(i));
    btnTab[i]->setIconSize(QSize(28, 16));
    const int n = static_cast<int>(i);
    connect(btnTab[i], &QPushButton::clicked, this, [this, n] { btnTab_Click(n); });
    ligneCouleurs->addWidget(btnTab[i]);
    setCouleur(n, couleurRéglage(kCouleursParDéfaut[i]));
  }

  m_labPolice = new QLabel(this);
  labFont = new QLabel(this);
  labFont->setObjectName(QStringLiteral("labFont"));
  labFont->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
  labFont->setMinimumWidth(140);
  labFont->setAutoFillBackground(true);
  cmdFont = new QPushButton(this);
  cmdFont->setObjectName(QStringLiteral("cmdFont"));
  connect(cmdFont, &QPushButton::clicked, this, [this] { cmdFont_Click(); });
  auto* lignePolice = new QHBoxLayout;
  lignePolice->addWidget(m_labPolice);
  lignePolice->addWidget(labFont, 1);
  lignePolice->addWidget(cmdFont);

  chkTabTransparent = new QCheckBox(this);
  chkTabTransparent->setObjectName(QStringLiteral("chkTabTransparent"));
  chkTabFolder = new QCheckBox(this);
  chkTabFolder->setObjectName(QStringLiteral("chkTabFolder"));
  chkTabStaffOnTab = new QCheckBox(this);
  chkTabStaffOnTab->setObjectName(QStringLiteral("chkTabStaffOnTab"));

  m_fraDisposition = new QGroupBox(this);
  auto* grille = new QGridLayout(m_fraDisposition);
  sldTabMARGIN_LEFT = ajouteCurseur(m_fraDisposition, grille, 0, "sldTabMARGIN_LEFT", 0, 200);
  sldTabMARGIN_TOP = ajouteCurseur(m_fraDisposition, grille, 1, "sldTabMARGIN_TOP", 20, 400);
  sldTabINTER_STRINGS = ajouteCurseur(m_fraDisposition, grille, 2, "sldTabINTER_STRINGS", 6, 40);
  sldTabINTER_NOTE = ajouteCurseur(m_fraDisposition, grille, 3, "sldTabINTER_NOTE", 6, 60);
  sldTabINTER_MESURE = ajouteCurseur(m_fraDisposition, grille, 4, "sldTabINTER_MESURE", 4, 80);

  auto* grilleExp = new QGridLayout;
  sldTabExp = ajouteCurseur(this, grilleExp, 0, "sldTabExp", 20, 250);
  sldTabExp.valeur->setObjectName(QStringLiteral("labTabExp"));

  btnTabRestore = new QPushButton(this);
  btnTabRestore->setObjectName(QStringLiteral("btnTabRestore"));
  connect(btnTabRestore, &QPushButton::clicked, this, [this] { btnTabRestore_Click(); });
  auto* ligneRestore = new QHBoxLayout;
  ligneRestore->addStretch(1);
  ligneRestore->addWidget(btnTabRestore);

  auto* pile = new QVBoxLayout(this);
  pile->addWidget(m_fraCouleurs);
  pile->addLayout(lignePolice);
  pile->addWidget(chkTabTransparent);
  pile->addWidget(chkTabFolder);
  pile->addWidget(chkTabStaffOnTab);
  pile->addWidget(m_fraDisposition);
  pile->addLayout(grilleExp);
  pile->addStretch(1);
  pile->addLayout(ligneRestore);
}

void PageTab::load_lang() {
  const VT& vt = m_options.vt();
  m_fraCouleurs->setTitle(vt.loadString(1134));
  btnTab[0]->setText(vt.loadString(1117));
  btnTab[1]->setText(vt.loadString(1118));
  btnTab[2]->setText(vt.loadString(1119));
  m_labPolice->setText(vt.loadString(1135));
  cmdFont->setText(vt.loadString(1120));
  chkTabTransparent->setText(vt.loadString(1121));
  chkTabFolder->setText(vt.loadString(1123));
  chkTabStaffOnTab->setText(vt.loadString(1124));
  m_fraDisposition->setTitle(vt.loadString(1133));
  sldTabMARGIN_LEFT.libellé->setText(vt.loadString(1125));
  sldTabMARGIN_TOP.libellé->setText(vt.loadString(1126));
  sldTabINTER_STRINGS.libellé->setText(vt.loadString(1127));
  sldTabINTER_NOTE.libellé->setText(vt.loadString(1128));
  sldTabINTER_MESURE.libellé->setText(vt.loadString(1130));
  sldTabExp.libellé->setText(vt.loadString(1131));
  btnTabRestore->setText(vt.loadString(1132));
}

void PageTab::setCouleur(int i, const QColor& c) {
  m_couleurs[static_cast<std::size_t>(i)] = c;
  btnTab[static_cast<std::size_t>(i)]->setIcon(échantillon(c));
}

void PageTab::setPolice(const QFont& f) {
  m_police = f;
  labFont->setFont(f);
  labFont->setText(f.family() + QStringLiteral(", ") + QString::number(f.pointSize()));
}

void PageTab::btnTab_Click(int i) {
  if (const auto c = m_options.choisitCouleur(couleur(i)); c && c->isValid()) setCouleur(i, *c);
}

void PageTab::cmdFont_Click() {
  if (const auto f = m_options.choisitPolice(m_police)) setPolice(*f);
}

void PageTab::btnTabRestore_Click() {
  sldTabExp.sld->setValue(66);
  sldTabMARGIN_LEFT.sld->setValue(35);
  sldTabMARGIN_TOP.sld->setValue(140);
  sldTabINTER_STRINGS.sld->setValue(13);
  sldTabINTER_NOTE.sld->setValue(20);
  sldTabINTER_MESURE.sld->setValue(20);
  chkTabStaffOnTab->setChecked(false);
  for (std::size_t i = 0; i < kCouleursParDéfaut.size(); ++i)
    setCouleur(static_cast<int>(i), couleurRéglage(kCouleursParDéfaut[i]));
}

}  // namespace vt

// The options' scales page: the labels on the notes, the keyboard, where a
// mode's root lies and the speed at which a scale plays.
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QSlider>
#include <QVBoxLayout>

#include "options_pages.h"
#include "shell/vt.h"

namespace vt {

PageGam::PageGam(VT& vt, QWidget* parent) : QWidget(parent), m_vt(vt) {
  setObjectName(QStringLiteral("KeyGam"));

  m_fraConst = new QGroupBox(this);
  auto* pileConst = new QVBoxLayout(m_fraConst);
  optGamConst = groupeOptions<4>(m_fraConst, grpGamConst, "optGamConst");
  for (QRadioButton* o : optGamConst)
    pileConst->addWidget(o);

  m_fraPiano = new QGroupBox(this);
  auto* pilePiano = new QVBoxLayout(m_fraPiano);
  optGamPiano = groupeOptions<2>(m_fraPiano, grpGamPiano, "optGamPiano");
  for (QRadioButton* o : optGamPiano)
    pilePiano->addWidget(o);
  pilePiano->addStretch(1);

  m_fraMode = new QGroupBox(this);
  auto* pileMode = new QVBoxLayout(m_fraMode);
  m_optGamMode = groupeOptions<2>(m_fraMode, grpGamMode, "optGamMode", 1);
  for (QRadioButton* o : m_optGamMode)
    pileMode->addWidget(o);

  auto* grilleTemps = new QGridLayout;
  sldGamTime = ajouteCurseur(this, grilleTemps, 0, "sldGamTime", 10, 1000);
  sldGamTime.sld->setSingleStep(5);
  sldGamTime.sld->setPageStep(50);
  sldGamTime.valeur->setObjectName(QStringLiteral("labGamTime"));

  auto* grille = new QGridLayout(this);
  grille->addWidget(m_fraConst, 0, 0);
  grille->addWidget(m_fraPiano, 0, 1);
  grille->addWidget(m_fraMode, 1, 0, 1, 2);
  grille->addLayout(grilleTemps, 2, 0, 1, 2);
  grille->setRowStretch(3, 1);
}

void PageGam::load_lang() {
  m_fraConst->setTitle(m_vt.loadString(1140));
  optGamConst[0]->setText(m_vt.loadString(1129));
  optGamConst[1]->setText(m_vt.loadString(1142));
  optGamConst[2]->setText(m_vt.loadString(1143));
  optGamConst[3]->setText(m_vt.loadString(1144));
  m_fraPiano->setTitle(m_vt.loadString(1149));
  optGamPiano[0]->setText(m_vt.loadString(1179));
  optGamPiano[1]->setText(m_vt.loadString(1180));
  m_fraMode->setTitle(m_vt.loadString(1145));
  optGamMode(1)->setText(m_vt.loadString(1146));
  optGamMode(2)->setText(m_vt.loadString(1147));
  sldGamTime.libellé->setText(m_vt.loadString(1148));
}

}  // namespace vt

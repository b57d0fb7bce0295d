// The options' chords page: names on the dots, and the weights of the
// fingering search.
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QVBoxLayout>

#include "options_pages.h"
#include "shell/vt.h"

namespace vt {

namespace {

// One slider per search parameter, in the page's order.
struct Paramètre {
  const char* nom;
  StringId libellé;
  int min;
  int max;
  int défaut;
};
constexpr std::array<Paramètre, 7> kParamètres = {{
    {"sldAccordCalcul0", StringId{1171}, 0, 100, 9},   // ADJ_SCORE
    {"sldAccordCalcul1", StringId{1172}, 1, 12, 4},    // MAXSPAN, in frets
    {"sldAccordCalcul2", StringId{1173}, 0, 100, 10},  // OPENS_SCORE
    {"sldAccordCalcul3", StringId{1174}, 0, 100, 2},   // POSITION_SCORE
    {"sldAccordCalcul4", StringId{1175}, 0, 100, 50},  // ROOT_SCORE
    {"sldAccordCalcul5", StringId{1176}, 0, 100, 12},  // SPAN_SCORE
    {"sldAccordCalcul6", StringId{1177}, 0, 100, 3},   // TSPAN_SCORE
}};

}  // namespace

PageAccords::PageAccords(VT& vt, QWidget* parent) : QWidget(parent), m_vt(vt) {
  setObjectName(QStringLiteral("accords"));

  m_fraConst = new QGroupBox(this);
  auto* pileConst = new QVBoxLayout(m_fraConst);
  optAccordConst = groupeOptions<2>(m_fraConst, grpAccordConst, "optAccordConst");
  for (QRadioButton* o : optAccordConst)
    pileConst->addWidget(o);

  m_fraCalcul = new QGroupBox(this);
  auto* grille = new QGridLayout(m_fraCalcul);
  for (std::size_t i = 0; i < kParamètres.size(); ++i) {
    const Paramètre& p = kParamètres[i];
    sldAccordCalcul[i] =
        ajouteCurseur(m_fraCalcul, grille, static_cast<int>(i), p.nom, p.min, p.max);
  }

  btnAccordRestore = new QPushButton(this);
  btnAccordRestore->setObjectName(QStringLiteral("btnAccordRestore"));
  connect(btnAccordRestore, &QPushButton::clicked, this, [this] { btnAccordRestore_Click(); });
  auto* ligne = new QHBoxLayout;
  ligne->addStretch(1);
  ligne->addWidget(btnAccordRestore);

  auto* pile = new QVBoxLayout(this);
  pile->addWidget(m_fraConst);
  pile->addWidget(m_fraCalcul);
  pile->addStretch(1);
  pile->addLayout(ligne);
}

void PageAccords::load_lang() {
  m_fraConst->setTitle(m_vt.loadString(1140));
  optAccordConst[0]->setText(m_vt.loadString(1150));
  optAccordConst[1]->setText(m_vt.loadString(1151));
  m_fraCalcul->setTitle(m_vt.loadString(1152));
  for (std::size_t i = 0; i < kParamètres.size(); ++i)
    sldAccordCalcul[i].libellé->setText(m_vt.loadString(kParamètres[i].libellé));
  btnAccordRestore->setText(m_vt.loadString(1153));
}

void PageAccords::btnAccordRestore_Click() {
  for (std::size_t i = 0; i < kParamètres.size(); ++i)
    sldAccordCalcul[i].sld->setValue(kParamètres[i].défaut);
}

}  // namespace vt

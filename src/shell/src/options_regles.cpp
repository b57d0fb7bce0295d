#include "options_regles.h"

#include <QCheckBox>
#include <QComboBox>
#include <QSlider>
#include <QSpinBox>
#include <QStatusBar>
#include <QToolBar>
#include <algorithm>
#include <array>

#include "options_pages.h"
#include "shell/foptions.h"
#include "shell/settings.h"
#include "shell/vt.h"

namespace vt {

namespace {

// A check box's value as the byte settings hold it: 0 or 1.
byt valeur(const QCheckBox* c) {
  return c->isChecked() ? 1 : 0;
}
// And as a truth value: checked is true.
vbool vrai(const QCheckBox* c) {
  return toVbool(c->isChecked());
}
void montre(QCheckBox* c, int v) {
  c->setChecked(v != 0);
}
// A list's entry, held to the list.
void choisit(QComboBox* c, int index) {
  if (c->count() > 0) c->setCurrentIndex(std::clamp(index, 0, c->count() - 1));
}
template <class T>
T entre(int v) {
  return static_cast<T>(v);
}

// The output and the input are closed and opened again only when their
// choice changed.
void appliqueEntrée(FOptions& o, Settings& s) {
  const PageMidiIn& p = o.pageMidiIn();
  // Nothing to choose from: the setting waits for its device.
  if (p.aucuneEntrée()) return;
  const int i = p.cmbMIDIINDevice->currentIndex();
  if (i < 0 || i == s.setMIDIInDevice) return;
  SonLive& son = o.vt().son();
  son.midiCloseIn();
  s.setMIDIInDevice = static_cast<i16>(i);
  son.midiOpenIn();
}

void appliqueSortie(FOptions& o, Settings& s) {
  const int d = o.pageMidi().appareil();
  if (d < -1 || d == s.setMIDIdevice) return;
  VT& vt = o.vt();
  o.pageMidi().arrêteEssais();
  // A piece that plays is stopped first: its notes would be cut off on the
  // old output and the cursor would run on in silence.
  if (auto* tab = vt.fenetres().interface<FenetreTablature>(fen::FTab); tab && tab->isPlaying())
    tab->TimerMIDIStop(true);
  vt.son().midiCloseOut();
  s.setMIDIdevice = static_cast<i16>(d);
  vt.son().midiOpenOut();
}

QFont police(const Settings& s) {
  QFont f(s.cfgFontName.isEmpty() ? QStringLiteral("Arial") : s.cfgFontName);
  f.setPointSize(std::max<int>(1, s.cfgFontSize));
  f.setBold(s.cfgFontBold != 0);
  return f;
}

void appliquePolice(const QFont& f, Settings& s) {
  s.cfgFontName = f.family();
  const int taille = f.pointSize() > 0 ? f.pointSize() : qRound(f.pointSizeF());
  if (taille > 0) s.cfgFontSize = static_cast<byt>(std::min(taille, 255));
  s.cfgFontBold = toVbool(f.bold());
}

template <std::size_t I>
void chargeDémarrage(FOptions& o, const Settings& s) {
  montre(o.pageDiv().chkStarWith[I], s.setStartWith[I]);
}
template <std::size_t I>
void appliqueDémarrage(FOptions& o, Settings& s) {
  s.setStartWith[I] = vrai(o.pageDiv().chkStarWith[I]);
}
#define VT_DEMARRAGE(i) \
  { "chkStarWith" #i, chargeDémarrage<i>, appliqueDémarrage<i> }

// The search parameters in the sliders' order.
constexpr std::array<byt tAccordParametres::*, 7> kParamètres = {
    &tAccordParametres::ADJ_SCORE,   &tAccordParametres::MAXSPAN,
    &tAccordParametres::OPENS_SCORE, &tAccordParametres::POSITION_SCORE,
    &tAccordParametres::ROOT_SCORE,  &tAccordParametres::SPAN_SCORE,
    &tAccordParametres::TSPAN_SCORE,
};
template <std::size_t I>
void chargeCalcul(FOptions& o, const Settings& s) {
  o.pageAccords().sldAccordCalcul[I].sld->setValue(s.AccordParametres.*kParamètres[I]);
}
template <std::size_t I>
void appliqueCalcul(FOptions& o, Settings& s) {
  s.AccordParametres.*kParamètres[I] = entre<byt>(o.pageAccords().sldAccordCalcul[I].sld->value());
}
#define VT_CALCUL(i) \
  { "sldAccordCalcul" #i, chargeCalcul<i>, appliqueCalcul<i> }

// The editor's three colours, in the buttons' order.
constexpr std::array<lng Settings::*, 3> kCouleurs = {
    &Settings::cfgCurseurColor, &Settings::cfgEventColor, &Settings::cfgLineColor};
template <std::size_t I>
void chargeCouleur(FOptions& o, const Settings& s) {
  o.pageTab().setCouleur(I, couleurRéglage(s.*kCouleurs[I]));
}
template <std::size_t I>
void appliqueCouleur(FOptions& o, Settings& s) {
  s.*kCouleurs[I] = valeurCouleur(o.pageTab().couleur(I));
}
#define VT_COULEUR(i) \
  { "btnTab" #i, chargeCouleur<i>, appliqueCouleur<i> }

// A slider of the tablature page and its setting.
#define VT_CURSEUR_TAB(nom, reglage)                                                      \
  {                                                                                       \
#nom, [](FOptions& o, const Settings& s) { o.pageTab().nom.sld->setValue(s.reglage); }, \
   [](FOptions& o, Settings& s) { s.reglage = entre<i16>(o.pageTab().nom.sld->value()); } \
  }

const std::array kRègles = std::to_array<RègleOption>({
    {"optManche", [](FOptions& o, const Settings& s) { coche(o.pageDiv().grpManche, s.setManche); },
     [](FOptions& o, Settings& s) {
       s.setManche = entre<byt>(std::max(0, indexCoché(o.pageDiv().grpManche)));
     }},
    // Right-handed is option 0; the other one is the left hand.
    {"optMancheHand",
     [](FOptions& o, const Settings& s) {
       coche(o.pageDiv().grpMancheHand, s.setLeftHanded != 0 ? 1 : 0);
     },
     [](FOptions& o, Settings& s) {
       s.setLeftHanded = toVbool(!o.pageDiv().optMancheHand[0]->isChecked());
     }},
    {"chkMIDIEffets1Ton",
     [](FOptions& o, const Settings& s) {
       montre(o.pageMidi().chkMIDIEffets1Ton, s.setMIDIEffet1Ton);
     },
     [](FOptions& o, Settings& s) { s.setMIDIEffet1Ton = vrai(o.pageMidi().chkMIDIEffets1Ton); }},
    {"chkM\u00e9tronomeMIDICanal10",
     [](FOptions& o, const Settings& s) {
       montre(o.pageMet().chkMétronomeMIDICanal10, s.setMétronomeMIDICanal10);
     },
     [](FOptions& o, Settings& s) {
       s.setMétronomeMIDICanal10 = valeur(o.pageMet().chkMétronomeMIDICanal10);
     }},
    // Note names on the dots is option 1: the setting is 1 then, else 0.
    {"optAccordConst",
     [](FOptions& o, const Settings& s) {
       coche(o.pageAccords().grpAccordConst, s.setAccordConst != 0 ? 1 : 0);
     },
     [](FOptions& o, Settings& s) {
       s.setAccordConst = o.pageAccords().optAccordConst[1]->isChecked() ? 1 : 0;
     }},
    // The audible click is option 0; any value but 0 is audible.
    {"optM\u00e9tro",
     [](FOptions& o, const Settings& s) { coche(o.pageMet().grpMétro, s.setMétro != 0 ? 0 : 1); },
     [](FOptions& o, Settings& s) { s.setMétro = o.pageMet().optMétro[0]->isChecked() ? 1 : 0; }},
    {"udM\u00e9tronomeMIDINote1",
     [](FOptions& o, const Settings& s) {
       o.pageMet().udMétronomeMIDINote1->setValue(s.setMétronomeMIDINote1);
     },
     [](FOptions& o, Settings& s) {
       s.setMétronomeMIDINote1 = entre<byt>(o.pageMet().udMétronomeMIDINote1->value());
     }},
    {"udM\u00e9tronomeMIDINote2",
     [](FOptions& o, const Settings& s) {
       o.pageMet().udMétronomeMIDINote2->setValue(s.setMétronomeMIDINote2);
     },
     [](FOptions& o, Settings& s) {
       s.setMétronomeMIDINote2 = entre<byt>(o.pageMet().udMétronomeMIDINote2->value());
     }},
    {"chkD\u00e9marrage",
     [](FOptions& o, const Settings& s) { montre(o.pageDiv().chkDémarrage, s.setDémarrage); },
     [](FOptions& o, Settings& s) { s.setDémarrage = valeur(o.pageDiv().chkDémarrage); }},
    // The bars follow their boxes at once; OK shows them as they are stored,
    // which puts right what a Cancel left on the screen.
    {"chkBarreEtat",
     [](FOptions& o, const Settings& s) { montre(o.pageDiv().chkBarreEtat, s.setStatusBar); },
     [](FOptions& o, Settings& s) {
       s.setStatusBar = valeur(o.pageDiv().chkBarreEtat);
       o.vt().statusBar()->setVisible(s.setStatusBar != 0);
     }},
    {"chkBarreOutils",
     [](FOptions& o, const Settings& s) { montre(o.pageDiv().chkBarreOutils, s.setToolBar); },
     [](FOptions& o, Settings& s) {
       s.setToolBar = valeur(o.pageDiv().chkBarreOutils);
       o.vt().toolbar()->setVisible(s.setToolBar != 0);
     }},
    // The channels' lists hold their numbers as text, 1 to 16.
    {"cmbMIDIINBasicChannel",
     [](FOptions& o, const Settings& s) {
       choisit(o.pageMidiIn().cmbMIDIINBasicChannel, s.setMIDIINBasicChannel - 1);
     },
     [](FOptions& o, Settings& s) {
       s.setMIDIINBasicChannel =
           entre<byt>(o.pageMidiIn().cmbMIDIINBasicChannel->currentText().toInt());
     }},
    {"cmbMIDIchannel",
     [](FOptions& o, const Settings& s) {
       choisit(o.pageMidi().cmbMIDIchannel, s.setMIDIchannel - 1);
     },
     [](FOptions& o, Settings& s) {
       s.setMIDIchannel = entre<byt>(o.pageMidi().cmbMIDIchannel->currentText().toInt());
     }},
    {"cmbMIDIinstru",
     [](FOptions& o, const Settings& s) { choisit(o.pageMidi().cmbMIDIinstru, s.setMIDIinstru); },
     [](FOptions& o, Settings& s) {
       s.setMIDIinstru = entre<byt>(std::max(0, o.pageMidi().cmbMIDIinstru->currentIndex()));
     }},
    {"sldMIDIvolume",
     [](FOptions& o, const Settings& s) {
       o.pageMidi().sldMIDIvolume.sld->setValue(s.setMIDIvolume);
     },
     [](FOptions& o, Settings& s) {
       s.setMIDIvolume = entre<byt>(o.pageMidi().sldMIDIvolume.sld->value());
     }},
    {"udPitchBendRange",
     [](FOptions& o, const Settings& s) {
       o.pageMidi().udPitchBendRange->setValue(s.setMIDIPitchBendRange);
     },
     [](FOptions& o, Settings& s) {
       s.setMIDIPitchBendRange = entre<byt>(o.pageMidi().udPitchBendRange->value());
     }},
    {"chkTabFolder",
     [](FOptions& o, const Settings& s) {
       montre(o.pageTab().chkTabFolder, s.setTabRememberFolder);
     },
     [](FOptions& o, Settings& s) { s.setTabRememberFolder = vrai(o.pageTab().chkTabFolder); }},
    // No setting of its own: the staff lies above the tablature when its
    // offset is not the larger one, and OK writes the pair.
    {"chkTabStaffOnTab",
     [](FOptions& o, const Settings& s) {
       o.pageTab().chkTabStaffOnTab->setChecked(s.TAB_VIEW_MARGIN_TOP_PORTEE <=
                                                s.TAB_VIEW_MARGIN_TOP_TAB);
     },
     [](FOptions& o, Settings& s) {
       const bool dessus = o.pageTab().chkTabStaffOnTab->isChecked();
       s.TAB_VIEW_MARGIN_TOP_PORTEE = dessus ? 0 : 150;
       s.TAB_VIEW_MARGIN_TOP_TAB = dessus ? 150 : 0;
     }},
    {"sldMIDIEffets",
     [](FOptions& o, const Settings& s) {
       o.pageMidi().sldMIDIEffets.sld->setValue(PageMidi::positionPas(s.setMIDIPitchDemiTon));
     },
     [](FOptions& o, Settings& s) {
       s.setMIDIPitchDemiTon =
           entre<i16>(PageMidi::pasParDemiTon(o.pageMidi().sldMIDIEffets.sld->value()));
     }},
    {"cmbMIDIINDevice",
     [](FOptions& o,
        const Settings& s) { choisit(o.pageMidiIn().cmbMIDIINDevice, s.setMIDIInDevice); },
     appliqueEntrée},
    // Entry 0 is the system's default, device -1.
    {"cmbMIDIdevice",
     [](FOptions& o,
        const Settings& s) { choisit(o.pageMidi().cmbMIDIdevice, s.setMIDIdevice + 1); },
     appliqueSortie},
    {"chkTipOfDay",
     [](FOptions& o, const Settings& s) { montre(o.pageDiv().chkTipOfDay, s.setTipsStartup); },
     [](FOptions& o, Settings& s) { s.setTipsStartup = valeur(o.pageDiv().chkTipOfDay); }},
    VT_DEMARRAGE(0),
    VT_DEMARRAGE(1),
    VT_DEMARRAGE(2),
    VT_DEMARRAGE(3),
    VT_DEMARRAGE(4),
    VT_DEMARRAGE(5),
    VT_DEMARRAGE(6),
    VT_CALCUL(0),
    VT_CALCUL(1),
    VT_CALCUL(2),
    VT_CALCUL(3),
    VT_CALCUL(4),
    VT_CALCUL(5),
    VT_CALCUL(6),
    VT_COULEUR(0),
    VT_COULEUR(1),
    VT_COULEUR(2),
    {"labFont", [](FOptions& o, const Settings& s) { o.pageTab().setPolice(police(s)); },
     [](FOptions& o, Settings& s) { appliquePolice(o.pageTab().police(), s); }},
    {"chkTabTransparent",
     [](FOptions& o, const Settings& s) {
       montre(o.pageTab().chkTabTransparent, s.cfgFontTransparent);
     },
     [](FOptions& o, Settings& s) { s.cfgFontTransparent = vrai(o.pageTab().chkTabTransparent); }},
    {"sldGamTime",
     [](FOptions& o, const Settings& s) { o.pageGam().sldGamTime.sld->setValue(s.setGAMTimer); },
     [](FOptions& o, Settings& s) {
       s.setGAMTimer = entre<i16>(o.pageGam().sldGamTime.sld->value());
     }},
    VT_CURSEUR_TAB(sldTabExp, cfgASCIILargeur),
    VT_CURSEUR_TAB(sldTabMARGIN_LEFT, TAB_VIEW_MARGIN_LEFT),
    VT_CURSEUR_TAB(sldTabMARGIN_TOP, TAB_VIEW_MARGIN_TOP),
    VT_CURSEUR_TAB(sldTabINTER_STRINGS, TAB_VIEW_INTER_STRINGS),
    VT_CURSEUR_TAB(sldTabINTER_NOTE, TAB_VIEW_INTER_NOTE),
    VT_CURSEUR_TAB(sldTabINTER_MESURE, TAB_VIEW_INTER_MESURE),
    {"optGamConst",
     [](FOptions& o, const Settings& s) { coche(o.pageGam().grpGamConst, s.setGAMConst); },
     [](FOptions& o, Settings& s) {
       s.setGAMConst = entre<byt>(std::max(0, indexCoché(o.pageGam().grpGamConst)));
     }},
    {"optGamPiano",
     [](FOptions& o, const Settings& s) { coche(o.pageGam().grpGamPiano, s.setGAMPiano); },
     [](FOptions& o, Settings& s) {
       s.setGAMPiano = entre<byt>(std::max(0, indexCoché(o.pageGam().grpGamPiano)));
     }},
    {"optGamMode",
     [](FOptions& o, const Settings& s) { coche(o.pageGam().grpGamMode, s.setGAMMode); },
     [](FOptions& o, Settings& s) {
       s.setGAMMode = entre<byt>(std::max(1, indexCoché(o.pageGam().grpGamMode)));
     }},
    // Stored by OK's step for the skin, which also gives the windows their pictures.
    {"lstSkin", [](FOptions& o, const Settings& s) { o.pageDiv().choisitSkin(s.strSkinPath); },
     [](FOptions&, Settings&) {}},
});

}  // namespace

std::span<const RègleOption> règlesOptions() {
  return kRègles;
}

}  // namespace vt

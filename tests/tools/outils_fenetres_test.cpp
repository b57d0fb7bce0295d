// The tuner, the metronome and the media player join the main window.
#include "outils_banc.h"

namespace vt::essai {
namespace {

class OutilsFenetres : public Outils {};

TEST_F(OutilsFenetres, OpenFromTheMenuItsKeysTheToolbarAndAtStart) {
  règle("Options/setStartWith4", "True");
  ouvre();
  EXPECT_TRUE(vt->isFormLoaded(fen::FMetronome)) << "a start-up window";
  EXPECT_FALSE(vt->isFormLoaded(fen::FAccordeur));
  EXPECT_EQ(vt->mnuFen(2)->shortcut(), QKeySequence(Qt::Key_F5));
  EXPECT_EQ(vt->mnuFen(3)->shortcut(), QKeySequence(Qt::Key_F6));
  EXPECT_EQ(vt->mnuFen(4)->shortcut(), QKeySequence(Qt::Key_F7));
  EXPECT_TRUE(vt->mnuFen(2)->isEnabled());
  vt->mnuFen(3)->trigger();
  EXPECT_TRUE(vt->isFormLoaded(fen::FAccordeur));
  vt->boutonBarre(QStringLiteral("mci"))->trigger();
  EXPECT_TRUE(vt->isFormLoaded(fen::FMultimedia));
  vt->fenetres().décharge(fen::FMetronome);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  ASSERT_FALSE(vt->isFormLoaded(fen::FMetronome));
  vt->boutonBarre(QString::fromUtf8("métronome"))->trigger();
  EXPECT_TRUE(vt->isFormLoaded(fen::FMetronome));
}

TEST_F(OutilsFenetres, OptionsOpenOnTheTunersAndTheMetronomesPages) {
  crée();
  OptionsEssai::enregistre(*vt, journal);
  ouvre();
  fenetre<FAccordeur>(fen::FAccordeur).btnOptions()->Click();
  EXPECT_EQ(journal, Journal{"selectTab KeyDiv"});
  journal.clear();
  FMetronome& m = fenetre<FMetronome>(fen::FMetronome);
  emit m.findChild<VTPictureButton*>(QStringLiteral("btnOptions"))->Click();
  EXPECT_EQ(journal, Journal{QString::fromUtf8("selectTab KeyMét")});
  EXPECT_EQ(modales, (std::vector<QString>{"FOptions", "FOptions"}));
}

}  // namespace
}  // namespace vt::essai

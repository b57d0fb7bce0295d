// fTabDrums: every General MIDI drum from 35 to 63 under one family, chosen
// by name, handed on as its note.
#include <QAction>
#include <QMenu>
#include <QSignalSpy>
#include <QToolButton>
#include <set>

#include "dialogs/batterie.h"
#include "dialogs/ftab_drums.h"
#include "dialogs_support.h"

namespace vt::essai {
namespace {

TEST(Drums, EveryDrumStandsInOneFamilyOnce) {
  std::multiset<int> notes;
  for (const FamilleBatterie& f : famillesBatterie()) {
    notes.insert(f.notes.begin(), f.notes.end());
    EXPECT_NE(std::find(f.notes.begin(), f.notes.end(), f.parDefaut), f.notes.end()) << f.bouton;
  }
  std::multiset<int> attendues;
  for (int n = kPremiereBatterie; n <= kDerniereBatterie; ++n)
    attendues.insert(n);
  EXPECT_EQ(notes, attendues);
  EXPECT_EQ(libelleBatterie(34), 0);
  EXPECT_EQ(libelleBatterie(64), 0);
}

TEST(Drums, AChosenNameGivesItsNoteAndThePlainButtonRepeatsIt) {
  fTabDrums drums(kAnglais);
  QSignalSpy choix(&drums, &fTabDrums::drumChoisi);
  EXPECT_EQ(drums.windowTitle(), "Drums");
  EXPECT_EQ(drums.note(), 0);
  const struct {
    const char* bouton;
    const char* action;
    const char* nom;
    int note;
  } cas[] = {
      {"btnSD", "drum38", "Acoustic Snare", 38},     {"btnHH", "drum46", "Open Hi-Hat", 46},
      {"btnBD", "drum35", "Acoustic Bass Drum", 35}, {"btnCC", "drum57", "Crash Cymbal 2", 57},
      {"btnP", "drum63", "Open Hi Conga", 63},       {"btnT", "drum41", "Low Floor Tom", 41}};
  for (const auto& c : cas) {
    auto* b = enfant<QToolButton>(&drums, c.bouton);
    QAction* a = enfant<QAction>(b->menu(), c.action);
    EXPECT_EQ(a->text(), c.nom);
    a->trigger();
    EXPECT_EQ(drums.note(), c.note);
    ASSERT_FALSE(choix.isEmpty());
    EXPECT_EQ(choix.takeLast().at(0).toInt(), c.note);
    EXPECT_EQ(b->toolTip(), c.nom);
    // The button itself gives the family's sound last chosen.
    b->click();
    EXPECT_EQ(choix.takeLast().at(0).toInt(), c.note);
  }
  // Untouched families give their usual sound.
  enfant<QToolButton>(&drums, "btnRC")->click();
  EXPECT_EQ(drums.note(), 51);
  EXPECT_EQ(enfant<QToolButton>(&drums, "btnRC")->text(), "Ride cymbal");
}

}  // namespace
}  // namespace vt::essai

// The harmoniser on the real main window, offscreen: clicks on the strip,
// the two modes, the list, and the jump from a line to its scale or chord.
#include <QMdiArea>
#include <QMdiSubWindow>

#include "gammes_banc.h"

namespace vt::essai {
namespace {

class Harmony : public BancGammes {
 protected:
  QStringList lignes() {
    QStringList l;
    for (int i = 0; i < harmony().lstGammes()->count(); ++i)
      l << harmony().lstGammes()->item(i)->text();
    return l;
  }
  int ligne(const QString& texte) { return static_cast<int>(lignes().indexOf(texte)); }
};

// Places of the standard tuning: string 5 is A, string 4 D, string 3 G.
constexpr int kCorde5 = 5, kCorde4 = 4, kCorde3 = 3;

TEST_F(Harmony, ClicksOnTheStripToggleAPitchClassAndTheListFollowsEachClick) {
  démarreAvec();
  FHarmony& h = harmony();
  EXPECT_EQ(vt->mancheContenu(), 3);
  EXPECT_EQ(h.windowTitle(), "Harmonizer");
  EXPECT_TRUE(lignes().isEmpty());

  clique(3, kCorde5);  // C
  EXPECT_EQ(lignes(), QStringList{"Single note of C"});
  EXPECT_EQ(couleurManche(8, 1), kJaune) << "every C of the neck";
  EXPECT_EQ(couleurManche(1, 2), kJaune);
  clique(2, kCorde4);  // E
  clique(0, kCorde3);  // G
  EXPECT_EQ(lignes(), QStringList{"Chord major of C"});
  EXPECT_EQ(couleurManche(0, 1), kJaune);

  clique(5, kCorde3);  // C an octave up: the pitch class goes
  EXPECT_EQ(lignes(), QStringList{});
  EXPECT_NE(couleurManche(8, 1), kJaune);
  clique(3, kCorde5);
  EXPECT_EQ(lignes(), QStringList{"Chord major of C"});

  // Harmonisation keeps the notes: every chord at each drawn root.
  QTest::mouseClick(h.optIdTypeBouton(), Qt::LeftButton);
  EXPECT_EQ(h.optIdType(), 1);
  EXPECT_EQ(h.txtHowto()->text(), "Draw on the neck the notes of a scale you want to harmonize...");
  EXPECT_EQ(h.optIdTypeLégende()->Caption(), "Harmonization (chords based on the drawn scale)");
  EXPECT_EQ(lignes().size() % 3, 0);
  EXPECT_EQ(lignes().mid(0, 3),
            (QStringList{"Chord 5 (power chord) of C", "Chord 5 (power chord) of E",
                         "Chord 5 (power chord) of G"}));
  vt->mnuFileLang_Click(0);
  EXPECT_EQ(h.windowTitle(), "Harmoniseur");
  EXPECT_EQ(lignes().first(), "Accord 5 (quinte) de Do");
  EXPECT_EQ(h.optIdTypeLégende()->Caption(),
            "Harmonisation (accords construits sur la gamme dessinée)");
  EXPECT_EQ(vt->mancheContenu(), 3);

  QTest::mouseClick(h.optIdTypeLégende(), Qt::LeftButton);
  EXPECT_EQ(h.optIdType(), 0);
  EXPECT_EQ(lignes(), QStringList{"Accord majeur de Do"});
  QTest::mouseClick(h.btnEffacer(), Qt::LeftButton);
  EXPECT_TRUE(lignes().isEmpty());
  EXPECT_EQ(h.tonsDessinés(), TonsDessinés{});

  // Without a chord dictionary a chord line does nothing.
  for (int note : {60, 64, 67})
    h.receiveNote(note);
  h.lstGammes_DblClick(0);
  EXPECT_FALSE(vt->isFormLoaded(fen::FGammes));
  EXPECT_FALSE(vt->isFormLoaded(fen::FAccords));
}

TEST_F(Harmony, ALineOpensItsScaleOrItsChord) {
  démarreAvec(true);
  FHarmony& h = harmony();
  for (int note : {60, 62, 64, 65, 67, 69, 71})  // C major's notes, from the MIDI input too
    h.receiveNote(note);
  ASSERT_GE(ligne("Dorian mode (II) of D"), 0);
  h.lstGammes_DblClick(ligne("Dorian mode (II) of D"));
  FGammes& g = gammes();
  EXPECT_EQ(g.windowTitle(), "Scales - Dorian mode (II) of D");
  EXPECT_EQ(vt->mancheContenu(), 1);
  EXPECT_EQ(couleurManche(10, 1), kBleu);

  // Back to the harmoniser, the strip shows its notes again.
  vt->mdiArea()->setActiveSubWindow(qobject_cast<QMdiSubWindow*>(h.parentWidget()));
  EXPECT_EQ(vt->mancheContenu(), 3);

  h.effaceNotes();
  for (int note : {57, 61, 64, 67})  // A C# E G
    h.receiveNote(note);
  EXPECT_EQ(lignes(), QStringList{"Chord 7 of A"});
  h.lstGammes_DblClick(0);
  EXPECT_TRUE(contient(journal, "montreAccord 0 7"));

  // A chord the dictionary's list has no type for shows in the scale window.
  h.effaceNotes();
  for (int note : {60, 63, 66, 69})
    h.receiveNote(note);
  h.lstGammes_DblClick(ligne("Chord dim7 of D#"));
  EXPECT_EQ(g.windowTitle(), "Scales - Chord dim7 of D#");
  h.lstGammes_DblClick(-1);
  h.lstGammes_DblClick(99);
}

TEST_F(Harmony, ADamagedFileGivesWhatItCanAndAMissingOneNothing) {
  QByteArray octets(92, ' ');
  for (int k = 0; k < 12; ++k)
    octets[k] = static_cast<char>(k == 0 ? 0 : k == 4 ? 77 : 255);
  octets.replace(12, 6, QByteArray("Accord", 6));
  octets.replace(52, 5, QByteArray("Chord", 5));
  octets += QByteArray(50, '\0');
  const QString dossier = dossierAvecGammes(octets);
  démarreAvec(true, dossier);
  FHarmony& h = harmony();
  h.receiveNote(60);
  h.receiveNote(64);
  EXPECT_EQ(lignes(), QStringList{"Chord of C"});
  h.lstGammes_DblClick(0);  // no type of the dictionary: the scale window
  EXPECT_EQ(gammes().windowTitle(), "Scales - Chord of C");
  QFile::remove(dossier + "scales.dat");
  h.receiveNote(67);
  EXPECT_TRUE(lignes().isEmpty());
  h.lstGammes_DblClick(0);
}

}  // namespace
}  // namespace vt::essai

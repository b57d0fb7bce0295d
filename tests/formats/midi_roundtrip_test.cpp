// Export with the tablature meta-events, import again: what comes back.
#include <gtest/gtest.h>

#include "document/validate.h"
#include "formats/midi_export.h"
#include "formats/midi_import.h"
#include "formats/string_table.h"
#include "interchange_test_util.h"

namespace vt {
namespace {

using test::poser;

CVantoroTablature original() {
  CVantoroTablature doc = test::document(2, 2);
  doc.titre = "Round";
  doc.Copy = "(c)";
  doc.Comments = "Test";
  doc.SousTitre = "not in a MIDI file";
  doc.tempo = 90;
  doc.setMesureSignature(2, 3, 4);
  doc.setMesureTonalité(1, 9);
  doc.setMesureTonalité(2, 71);
  doc.setMesureTempo(2, 48, 100);
  doc.setPisteNom(1, "Lead");
  doc.setMIDIPatch(1, 25);
  doc.setGuitareCapodastre(1, 2);
  doc.setMesureTexte(1, 1, 0, "Intro", kVrai);
  doc.setMesureTexte(2, 2, 48, "fin", kFaux);
  const int a = doc.addandplaceMesureAccord(1, 1, 0);
  OneBased<byt> frettes(6);
  const int f[] = {3, 0, 0, 0, 2, 3};
  for (int c = 1; c <= 6; ++c)
    frettes[c] = static_cast<byt>(f[c - 1]);
  doc.setMesureAccord(1, 1, a, "G", frettes);

  poser(doc, 1, 1, 1, 0, 3, 24, effet::kHammerOn);
  poser(doc, 1, 1, 2, 0, 5, 24, effet::kPullOff);
  poser(doc, 1, 1, 3, 24, 7, 24, effet::kVibrato);
  poser(doc, 1, 1, 4, 24, 2, 24, effet::kTremolo);
  poser(doc, 1, 1, 5, 48, 3, 24, effet::kTrill);
  poser(doc, 1, 1, 6, 48, 0, 24, 0, attaque::kTap);
  poser(doc, 1, 1, 1, 72, 12, 24, 0, attaque::kHarmoniqueNaturelle);
  poser(doc, 1, 1, 2, 72, 8, 24, 0, attaque::kPalmMute);
  poser(doc, 1, 1, 3, 96, 4, 24, 0, attaque::kDeadNote);
  poser(doc, 1, 1, 4, 96, 5, 24, 0, attaque::kHarmoniqueArtificielle);
  poser(doc, 1, 1, 5, 120, 7, 48, effet::kSlideUp);
  poser(doc, 1, 1, 5, 168, 9, 24);
  poser(doc, 1, 1, 1, 144, 1, 24, 0, 0, 63);
  poser(doc, 1, 2, 6, 0, 3, 48, effet::kBendUp);
  poser(doc, 1, 2, 6, 48, 5, 48);

  // A seven-string track.
  doc.setGuitareNbrCordes(2, 7);
  doc.setGuitareCorde(2, 7, 35);
  doc.changePisteNbrCordes(2);
  poser(doc, 2, 1, 7, 0, 2, 96);
  poser(doc, 2, 1, 1, 96, 0, 96);
  poser(doc, 2, 2, 4, 0, 1, 48);
  return doc;
}

CVantoroTablature allerRetour(CVantoroTablature& doc, bool rmtf) {
  MidiExportOptions o;
  o.rmtf = rmtf;
  MidiFichier f;
  EXPECT_TRUE(lireMidi(io_enregistrer_mid(doc, o), f).ok());
  MidiImportOptions io;
  io.sources = sourcesParDéfaut(sourcesMidi(f, kLangAnglais));
  EXPECT_EQ(io.sources, (std::vector<int>{1, 2}));
  CVantoroTablature retour;
  EXPECT_TRUE(convertirMidi(f, io, retour).ok());
  EXPECT_EQ(validateDocument(retour), "");
  return retour;
}

// The note on string c at tick x, or a failure.
tNote noteA(const CVantoroTablature& doc, int p, int m, int c, int x) {
  const int n = doc.searchNote(p, m, c, x);
  EXPECT_NE(n, 0) << "no note on track " << p << " bar " << m << " string " << c << " at " << x;
  return n != 0 ? *doc.getNote(p, m, c, n) : tNote{};
}

TEST(MidiRoundTrip, StringsFretsAndEffectsComeBackWithRmtf) {
  CVantoroTablature doc = original();
  const CVantoroTablature retour = allerRetour(doc, true);

  EXPECT_EQ(
      (std::vector<std::string>{retour.titre, retour.Copy, retour.Comments, retour.SousTitre}),
      (std::vector<std::string>{"Round", "(c)", "Test", ""}));
  // Tempo, bars, signature of bar 2, keys, tempo change, patch and capo of track 1.
  EXPECT_EQ((std::vector<int>{retour.tempo, retour.getMesureLast(), retour.getMesureSignatureUp(2),
                              retour.getMesureTonalité(1), retour.getMesureTonalité(2),
                              retour.getMesureTempoContenu(2, retour.searchMesureTempo(2, 48)),
                              retour.getMIDIPatch(1), retour.getGuitareCapodastre(1)}),
            (std::vector<int>{90, 2, 3, 9, 71, 100, 25, 2}));
  // Texts travel in the conductor track: they come back above track 1.
  EXPECT_EQ((std::vector<std::string>{retour.getPisteNom(1), retour.getMesureAccordNom(1, 1, 1),
                                      retour.getMesureTexte(1, 1, 0, kVrai),
                                      retour.getMesureTexte(1, 2, 48, kVrai)}),
            (std::vector<std::string>{"Lead", "G", "Intro", "fin"}));
  EXPECT_EQ(
      (std::vector<int>{retour.getMesureAccordLast(1, 1), retour.getMesureAccordCorde(1, 1, 1, 1),
                        retour.getMesureAccordCorde(1, 1, 1, 5)}),
      (std::vector<int>{1, 3, 2}));

  // Harmonics: the pair 7 / 8 is read the other way round from how it is
  // written, and the fret that comes back is the one that sounds.
  struct Cas {
    int c, x, frette, effet, attaque;
  };
  const Cas cas[] = {
      {1, 72, 12, 0, attaque::kHarmoniqueArtificielle},
      {4, 96, 17, 0, attaque::kHarmoniqueNaturelle},
      {1, 0, 3, effet::kHammerOn, 0},
      {2, 0, 5, effet::kPullOff, 0},
      {3, 24, 7, effet::kVibrato, 0},
      {4, 24, 2, effet::kTremolo, 0},
      {5, 48, 3, effet::kTrill, 0},
      {6, 48, 0, 0, attaque::kTap},
      {2, 72, 8, 0, attaque::kPalmMute},
      {3, 96, 4, 0, attaque::kDeadNote},
      {5, 120, 7, effet::kSlideUp, 0},
      {1, 144, 1, 0, 0},
  };
  for (const Cas& k : cas) {
    const tNote n = noteA(retour, 1, 1, k.c, k.x);
    EXPECT_EQ((std::vector<int>{n.bytCase, n.bytEffet, n.bytAttaque}),
              (std::vector<int>{k.frette, k.effet, k.attaque}))
        << k.c << "@" << k.x;
  }
  // A glide has no Note On of its own: the slide or bend comes back as one
  // note that lasts to the end of its target.
  EXPECT_EQ(
      (std::vector<int>{noteA(retour, 1, 1, 1, 144).bytVolume, noteA(retour, 1, 1, 1, 0).bytDurée,
                        noteA(retour, 1, 1, 5, 120).bytDurée, retour.getNoteLast(1, 1, 5),
                        noteA(retour, 1, 2, 6, 0).bytEffet, retour.getNoteLast(1, 2, 6)}),
      (std::vector<int>{63, 24, 72, 2, effet::kBendUp, 1}));
  // The seven-string track gets its instrument back from its track header.
  EXPECT_EQ((std::vector<int>{retour.getGuitareNbrCordes(2), retour.getGuitareCorde(2, 7)}),
            (std::vector<int>{7, 35}));
  EXPECT_EQ(test::notes(retour, 2), (std::vector<std::string>{"1:1:96:0", "1:7:0:2", "2:4:0:1"}));
}

TEST(MidiRoundTrip, WithoutRmtfTheStringsFollowTheRule) {
  CVantoroTablature doc = original();
  const CVantoroTablature retour = allerRetour(doc, false);
  // The E4 of string 2 would go to string 1, which already holds the G
  // sounding at that tick: it stays on string 2. Fret 3 of string 5 (C3) goes
  // to the highest string that reaches it.
  EXPECT_EQ((std::vector<int>{retour.getGuitareNbrCordes(2), noteA(retour, 1, 1, 1, 0).bytCase,
                              noteA(retour, 1, 1, 2, 0).bytCase, noteA(retour, 1, 1, 1, 0).bytEffet,
                              noteA(retour, 1, 1, 5, 48).bytCase}),
            (std::vector<int>{6, 3, 5, 0, 3}));
  // The chord diagram still comes back: it is written in any case.
  EXPECT_EQ(retour.getMesureAccordNom(1, 1, 1), "G");
  // The 37 of the seven-string track is below a six-string guitar: dropped.
  EXPECT_EQ(retour.searchNote(2, 1, 6, 0), 0);
}

}  // namespace
}  // namespace vt

// The bytes of version 8 as the writer lays them out; and save, read, compare:
// a document survives its file, and a file its document.
#include <gtest/gtest.h>

#include "formats/vtb.h"
#include "vtb_test_util.h"

namespace vt {
namespace {

using test::Octets;

std::vector<std::uint8_t> écrire(const CVantoroTablature& d) {
  VtbEcriture e = io_enregistrer_vtb(d);
  EXPECT_TRUE(e.ok()) << e.détail;
  return e.octets;
}

// The track head and the empty bars of a track of the default settings.
Octets& pisteParDéfaut(Octets& o, int p, const std::string& instrument,
                       std::initializer_list<int> cordes, int bars) {
  o.raw("TRK").b(p).str("").str(instrument).b(static_cast<int>(cordes.size()));
  for (int c : cordes)
    o.b(c);
  o.b(0).b(24).b(p - 1).be32(0).b(27).b(127).b(64).bs({0, 0, 0, 0}).b(1).b(0).b(0).b(0);
  for (int m = 0; m < bars; ++m) {
    o.b(0).b(0).b(0);
    for (std::size_t c = 0; c < cordes.size(); ++c)
      o.b(0);
  }
  return o;
}

TEST(VtbWrite, NewDocumentGivesTheListedBytesTheHeadAuthorFirstAndOneByteTrackCount) {
  const CVantoroTablature d(test::guitare({64, 59, 55, 50, 45, 40}, 24, "Guitar"));
  Octets attendu;
  attendu.raw("VTB").b(8).b(1).bs({0, 0, 0, 0, 0}).b(120).b(0).b(0).be16(1).raw("TRK0");
  attendu.bs({8, 4, 4, 0, 0, 0, 0, 0});
  pisteParDéfaut(attendu, 1, "Guitar", {64, 59, 55, 50, 45, 40}, 1).raw("END");
  EXPECT_EQ(écrire(d), attendu.v);
  // The head takes the author before the title, and the track count in one byte.
  CVantoroTablature tête(test::guitare({40}, 24, "G"));
  tête.titre = "T";
  tête.Auteur = "Au";
  tête.Copy = "C";
  tête.SousTitre = "S";
  tête.Comments = "Co";
  tête.tempo = 200;
  tête.setTripleFeel(kVrai);
  tête.addPiste(1, test::guitare({40}, 24, "G"));
  tête.addMesure();
  Octets octets;
  octets.raw("VTB").b(8).b(2).str("Au").str("T").str("C").str("S").str("Co");
  octets.b(200).b(255).b(0).be16(2).raw("TRK0");
  octets.bs({8, 4, 4, 0, 0, 0, 0, 0}).bs({8, 4, 4, 0, 0, 0, 0, 0});
  pisteParDéfaut(octets, 1, "G", {40}, 2);
  pisteParDéfaut(octets, 2, "G", {40}, 2).raw("END");
  EXPECT_EQ(écrire(tête), octets.v);
}

// The bytes of the first track's first bar, found behind its head.
std::vector<std::uint8_t> premièreMesure(const std::vector<std::uint8_t>& f,
                                         std::size_t têteEtTable) {
  return std::vector<std::uint8_t>(f.begin() + static_cast<std::ptrdiff_t>(têteEtTable),
                                   f.end() - 3);
}

TEST(VtbWrite, NotePositionsAreBigEndian) {
  CVantoroTablature d(test::guitare({40}, 24, ""));
  d.setMesureSignature(1, 8, 4);  // 384 ticks
  int n = d.setNoteWhole(1, 1, 1, 200, 7, 48);
  d.setNoteVolume(1, 1, 1, n, 127);
  d.setNoteAttaque(1, 1, 1, n, 3);
  d.setNoteEffet(1, 1, 1, n, 9);
  n = d.setNoteWhole(1, 1, 1, 300, 8, 24);
  const auto f = écrire(d);
  // head 19 bytes, bar table 8, track head 26 for one string and empty names
  Octets attendu;
  attendu.b(0).b(0).b(0).b(2).bs({7, 3, 9, 127, 0, 200, 48}).bs({8, 0, 0, 0, 1, 44, 24});
  EXPECT_EQ(premièreMesure(f, 19 + 8 + 26), attendu.v);
}

TEST(VtbWrite, BankFlagsAndTrackNumbers) {
  CVantoroTablature d(test::guitare({40}, 24, ""));
  d.addPiste(1, test::guitare({40}, 24, ""));
  d.addPiste(2, test::guitare({40}, 24, ""));
  d.setMIDIBank(1, 5);
  d.setPistePlaySolo(1, kVrai);
  d.setPistePlayMute(1, kVrai);
  d.setMIDIBank(2, -2);
  d.setPistePlaySolo(2, kVrai);
  d.setPistePlayMute(3, kVrai);
  const auto f = écrire(d);
  const std::size_t début = 19 + 8;
  const std::size_t piste = 26 + 4;  // head and one empty bar of one string
  const auto à = [&](int p, std::size_t k) {
    return f[début + piste * static_cast<std::size_t>(p - 1) + k];
  };
  // "TRK" and the number from 1, the number less 1, the bank, solo and mute.
  const auto tête = [&](int p) {
    std::vector<int> v;
    for (std::size_t k : {3, 10, 11, 12, 13, 14, 24})
      v.push_back(à(p, k));
    return v;
  };
  EXPECT_EQ(tête(1), (std::vector<int>{1, 0, 0, 0, 0, 5, 3}));
  EXPECT_EQ(tête(2), (std::vector<int>{2, 1, 255, 255, 255, 254, 1}));
  EXPECT_EQ(tête(3), (std::vector<int>{3, 2, 0, 0, 0, 0, 2}));
}

TEST(VtbWrite, TextsOver255BytesAndDocumentsBreakingTheirRulesAreNotWritten) {
  CVantoroTablature d;
  d.titre = std::string(255, 'x');
  EXPECT_TRUE(io_enregistrer_vtb(d).ok());
  d.Comments = std::string(256, 'y');
  VtbEcriture e = io_enregistrer_vtb(d);
  EXPECT_EQ(std::pair(e.message, e.détail),
            std::pair(msg::kTexteTropLong, std::string("Comments")));
  EXPECT_TRUE(e.octets.empty());

  // Records written around the checked setters are caught as well.
  CVantoroTablature d2;
  d2.addMesure();
  tTexte texteLong;
  texteLong.intX = 12;
  texteLong.strContenu.assign(300, 'z');
  d2.pisteMesure(1, 2)->tabTextesDn.push_back(texteLong);
  e = io_enregistrer_vtb(d2);
  EXPECT_EQ(std::pair(e.message, e.détail),
            std::pair(msg::kTexteTropLong, std::string("track 1, bar 2: lower text at tick 12")));
  // A document breaking its rules: notes out of order, which the reader would refuse.
  d = CVantoroTablature();
  OneBased<tNote>& notes = d.pisteMesure(1, 1)->tabCordes[2];
  notes.push_back(tNote{1, 12, 48, 0, 0, 0, 127});
  notes.push_back(tNote{2, 12, 0, 0, 0, 0, 127});
  e = io_enregistrer_vtb(d);
  EXPECT_EQ(e.message, msg::kDocumentIncohérent);
  EXPECT_NE(e.détail.find("string 2"), std::string::npos);
}

void allerRetour(const CVantoroTablature& d) {
  const VtbEcriture e = io_enregistrer_vtb(d);
  ASSERT_TRUE(e.ok()) << e.détail;
  const VtbLecture r = io_ouvrir_vtb(e.octets, test::contexte());
  ASSERT_TRUE(r.ok()) << r.détail;
  const CVantoroTablature attendu = test::contenuStocké(d);
  const CVantoroTablature& lu = *r.document;
  // Track by track first, so that a difference says where it lies.
  for (int p = 1; p <= attendu.getPisteLast() && p <= lu.getPisteLast(); ++p)
    EXPECT_EQ(lu.piste(p), attendu.piste(p)) << "track " << p;
  EXPECT_EQ(lu, attendu);
  EXPECT_EQ(std::pair(r.version, lu.modifi), std::pair(8, kFaux));
  const VtbEcriture encore = io_enregistrer_vtb(lu);
  ASSERT_TRUE(encore.ok());
  EXPECT_EQ(encore.octets, e.octets);
}

TEST(VtbRoundTrip, DocumentsOfRandomEdits) {
  for (std::uint32_t graine = 1; graine <= 60; ++graine) {
    SCOPED_TRACE(graine);
    allerRetour(test::documentAléatoire(graine));
  }
}

TEST(VtbRoundTrip, LimitsOfTheFormatAndReadingDoesNotDependOnTheCurrentInstrument) {
  CVantoroTablature d(test::guitare({64, 59, 55, 50, 45, 40, 35}, 255, std::string(255, '\xFF')));
  d.titre = std::string(255, 'T');
  // 255 notes on one string of a bar wide enough for them, 255 texts and chords.
  d.setMesureSignature(1, 16, 1);
  for (int x = 0; x < 255; ++x)
    d.setNoteWhole(1, 1, 7, x * 12, x % 25, 12);
  for (int x = 0; x < 255; ++x)
    d.setMesureTexte(1, 1, x, std::string(1, static_cast<char>(x)), kVrai);
  for (int x = 0; x < 255; ++x)
    d.addandplaceMesureAccord(1, 1, 65535 - x);
  d.setMIDIBank(1, INT32_MIN);
  ASSERT_EQ(d.getNoteLast(1, 1, 7), 255);
  allerRetour(d);

  // 255 tracks and many bars.
  CVantoroTablature grand(test::guitare({40}, 24, "x"));
  while (grand.getPisteLast() < 255)
    grand.addPiste(grand.getPisteLast(), test::guitare({40, 45}, 24, "y"));
  while (grand.getMesureLast() < 300)
    grand.addMesure();
  grand.setNoteWhole(255, 300, 2, 0, 5, 48);
  allerRetour(grand);
  // Reading does not depend on the current instrument.
  const VtbEcriture e = io_enregistrer_vtb(test::documentRiche());
  ASSERT_TRUE(e.ok());
  const VtbLecture a = io_ouvrir_vtb(e.octets, test::contexte(test::guitareInconnue()));
  const VtbLecture b =
      io_ouvrir_vtb(e.octets, test::contexte(test::guitare({30, 31, 32, 33, 34, 35, 36})));
  ASSERT_TRUE(a.ok() && b.ok());
  EXPECT_EQ(*a.document, *b.document);
}

}  // namespace
}  // namespace vt

// Save, read, compare: a document survives its file, and a file its document.
#include <gtest/gtest.h>

#include "formats/vtb.h"
#include "vtb_test_util.h"

namespace vt {
namespace {

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

TEST(VtbRoundTrip, LimitsOfTheFormat) {
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
}

TEST(VtbRoundTrip, ReadingDoesNotDependOnTheCurrentInstrument) {
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

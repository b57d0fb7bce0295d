// vantoro-cli convert between .vtb, MIDI files and ASCII tablature, end to
// end: the six directions, the options of each format, and the refusals.
#include <algorithm>

#include "cli_banc.h"
#include "formats/catalogue.h"
#include "formats/midi_reader.h"
#include "formats/string_table.h"
#include "formats/vtb.h"

namespace vt {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;

class CliConvert : public CliBanc {
 protected:
  json dump(const std::string& nom) { return jsonDe("dump " + c(nom)); }
  // A two-track .vtb with effects and a chord, written by the .vtb writer.
  void morceau(const std::string& nom) {
    const tGuitare guitare =
        CatalogueGuitares::load(fs::path(VT_CLI).parent_path() / kFichierCatalogue)
            .loadGuitare(1, kLangAnglais);
    CVantoroTablature doc(guitare);
    doc.titre = "Morceau";
    doc.addMesure();
    doc.addPiste(1, guitare);
    auto note = [&](int p, int m, int corde, int x, int frette, int effet) {
      const int n = doc.setNoteWhole(p, m, corde, x, frette, 48);
      doc.setNoteVolume(p, m, corde, n, 111);
      doc.setNoteEffet(p, m, corde, n, static_cast<byt>(effet));
    };
    note(1, 1, 1, 0, 3, effet::kHammerOn);
    note(1, 1, 2, 48, 5, 0);
    note(1, 1, 3, 96, 12, effet::kVibrato);
    note(1, 2, 6, 0, 0, 0);
    note(2, 1, 5, 0, 2, 0);
    note(2, 2, 4, 96, 7, effet::kPullOff);
    ASSERT_TRUE(io_enregistrer_vtb(doc, dossier_ / nom).ok());
  }
};

// The frets of every note of a dumped track, as "bar:string:X:fret".
std::vector<std::string> notes(const json& d, int piste) {
  std::vector<std::string> out;
  const json& mesures = d["pistes"][static_cast<std::size_t>(piste - 1)]["mesures"];
  for (std::size_t m = 0; m < mesures.size(); ++m)
    for (std::size_t s = 0; s < mesures[m]["cordes"].size(); ++s)
      for (const json& n : mesures[m]["cordes"][s])
        out.push_back(std::to_string(m + 1) + ":" + std::to_string(s + 1) + ":" +
                      std::to_string(n["intX"].get<int>()) + ":" +
                      std::to_string(n["bytCase"].get<int>()));
  return out;
}

// The pitches of track 1, sorted: open string plus fret.
std::vector<int> hauteurs(const json& d) {
  std::vector<int> out;
  const json& piste = d["pistes"][0];
  for (const json& m : piste["mesures"])
    for (std::size_t s = 0; s < m["cordes"].size(); ++s)
      for (const json& n : m["cordes"][s])
        out.push_back(piste["bytCordes"][s].get<int>() + n["bytCase"].get<int>());
  std::sort(out.begin(), out.end());
  return out;
}

TEST_F(CliConvert, AllSixDirections) {
  morceau("a.vtb");
  const std::vector<std::string> piste1 = {"1:1:0:3", "1:2:48:5", "1:3:96:12", "2:6:0:0"};

  // .vtb -> .mid -> .vtb: with RMTF, strings, frets and effects come back.
  ASSERT_EQ(lancer("convert " + c("a.vtb") + " " + c("a.mid") + " --rmtf").code, 0);
  EXPECT_EQ(lireTout(dossier_ / "a.mid").substr(0, 4), "MThd");
  ASSERT_EQ(lancer("convert " + c("a.mid") + " " + c("b.vtb")).code, 0);
  const json b = dump("b.vtb");
  EXPECT_EQ(b["titre"], "Morceau");
  EXPECT_EQ(notes(b, 1), piste1);
  EXPECT_EQ(notes(b, 2), (std::vector<std::string>{"1:5:0:2", "2:4:96:7"}));
  EXPECT_EQ(b["pistes"][0]["mesures"][0]["cordes"][0][0]["bytEffet"], effet::kHammerOn);
  EXPECT_EQ(b["pistes"][1]["mesures"][1]["cordes"][3][0]["bytEffet"], effet::kPullOff);

  // .vtb -> .txt -> .vtb: frets and strings, at the rhythm asked.
  ASSERT_EQ(lancer("convert " + c("a.vtb") + " " + c("a.txt")).code, 0);
  const std::string texte = lireTout(dossier_ / "a.txt");
  EXPECT_NE(texte.find("Titre: Morceau\r\n"), std::string::npos);
  EXPECT_NE(texte.find("|-3H---------|------------|\r\n"), std::string::npos) << texte;
  ASSERT_EQ(lancer("convert " + c("a.txt") + " " + c("c.vtb") + " --rhythm 12").code, 0)
      << lireTout(dossier_ / "stderr");
  // Three columns to the quarter note, 12 ticks each. A one-digit fret stands
  // in the second column of its group, so it comes back one column late; a
  // two-digit fret starts its group.
  EXPECT_EQ(notes(dump("c.vtb"), 1),
            (std::vector<std::string>{"1:1:12:3", "1:2:48:5", "1:3:72:12", "2:6:12:0"}));

  // .mid -> .txt and .txt -> .mid.
  ASSERT_EQ(lancer("convert " + c("a.mid") + " " + c("d.tab") + " --track 2").code, 0);
  EXPECT_NE(lireTout(dossier_ / "d.tab").find("|-2-"), std::string::npos);
  ASSERT_EQ(lancer("convert " + c("a.txt") + " " + c("e.midi") + " --rhythm 12").code, 0);
  const json e = json::parse(lancer("info " + c("e.midi")).sortie);
  EXPECT_EQ(
      e, json::parse(R"({"format":"midi","version":1,"tracks":1,"bars":2,"notes":4,"title":""})"));
  // At a width of 20 each bar stands alone in its block.
  ASSERT_EQ(lancer("convert " + c("a.vtb") + " " + c("w.txt") + " --width 20").code, 0);
  EXPECT_NE(lireTout(dossier_ / "w.txt").find("|-3H---------|\r\n"), std::string::npos);
}

TEST_F(CliConvert, MidiImportOptions) {
  const std::string duo = "'" + std::string(VT_TEST_DATA_DIR) + "/midi/lily_duet.midi'";
  ASSERT_EQ(lancer("convert " + duo + " " + c("a.vtb")).code, 0);
  const json tout = dump("a.vtb");
  EXPECT_EQ(tout["pistes"].size(), 2u);
  EXPECT_EQ(tout["tempo"], 100);

  // The bass alone, then bass and melody the other way round.
  ASSERT_EQ(lancer("convert " + duo + " " + c("b.vtb") + " --midi-tracks 2").code, 0);
  const json basse = dump("b.vtb");
  ASSERT_EQ(basse["pistes"].size(), 1u);
  EXPECT_EQ(notes(basse, 1), notes(tout, 2));
  ASSERT_EQ(lancer("convert " + duo + " " + c("c.vtb") + " --midi-tracks 2,1").code, 0);
  EXPECT_EQ(notes(dump("c.vtb"), 2), notes(tout, 1));

  // An octave up: every note twelve semitones higher, on whatever string.
  ASSERT_EQ(lancer("convert " + duo + " " + c("d.vtb") + " --midi-tracks 2 --transpose 12").code,
            0);
  std::vector<int> attendues = hauteurs(basse);
  for (int& h : attendues)
    h += 12;
  EXPECT_EQ(hauteurs(dump("d.vtb")), attendues);

  ASSERT_EQ(lancer("convert " + duo + " " + c("e.vtb") + " --tempos off").code, 0);
  const json sans = dump("e.vtb");
  EXPECT_EQ(sans["tempo"], 120);
  for (const json& m : sans["mesures"])
    EXPECT_EQ(m["tempos"], json::array());
}

TEST_F(CliConvert, FormatZeroChannels) {
  const std::string zéro = "'" + std::string(VT_TEST_DATA_DIR) + "/midi/csv_format0.mid'";
  Résultat r = lancer("convert " + zéro + " " + c("a.vtb") + " --midi-tracks 2");
  ASSERT_EQ(r.code, 0);
  EXPECT_EQ(r.erreurs, loadString(kMsgMidiFormat0, kLangAnglais) + "\n");
  EXPECT_EQ(notes(dump("a.vtb"), 1), (std::vector<std::string>{"1:6:0:0", "2:5:0:0"}));

  r = lancer("--lang fr convert " + zéro + " " + c("b.vtb") + " --midi-tracks 5");
  EXPECT_EQ(r.code, 1);
  EXPECT_NE(r.erreurs.find(loadString(kMsgMidiPisteSansNote, kLangFrançais)), std::string::npos);
  EXPECT_FALSE(fs::exists(dossier_ / "b.vtb"));
}

}  // namespace
}  // namespace vt

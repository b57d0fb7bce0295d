// vantoro-cli chords: the dictionary's answer as JSON, and the refusals.
#include "cli_banc.h"

namespace vt {
namespace {

using Json = nlohmann::json;

class ChordsCli : public CliBanc {
 protected:
  Json json(const std::string& arguments) { return jsonDe("chords " + arguments); }
};

TEST_F(ChordsCli, AStandardChordGivesItsNameToneAndFingeringsBestFirst) {
  const Json c7 = json("C 7");
  EXPECT_EQ(c7["name"], "Cadd7");
  EXPECT_EQ(c7["construction"], Json::parse("[3,-1,-1,-1,7,-1,-1,10,-1,-1,1,-1]"));
  ASSERT_GT(c7["positions"].size(), 3u);
  EXPECT_EQ(c7["positions"][0], Json::parse("[-1,3,2,3,1,0]"));
  EXPECT_EQ(c7["inversions"].size(), c7["positions"].size());
  EXPECT_EQ(c7["inversions"][0], "");
  EXPECT_EQ(c7["tones"][3]["degree"], "b7");
  EXPECT_EQ(c7["tones"][3]["note"], "A#");

  // A type with a blank, a key written with a flat.
  const Json bbm7b5 = json("Bb 'min7 5b'");
  EXPECT_EQ(bbm7b5["name"], "A#ddm");
  // Some inversion of C names its bass.
  const Json c = json("C maj");
  bool basse = false;
  for (const auto& r : c["inversions"])
    basse = basse || r == "/E" || r == "/G";
  EXPECT_TRUE(basse);
}

TEST_F(ChordsCli, TuningParametersAndCreateModeChangeTheSearch) {
  // Drop D: the low D rings under the D chord.
  EXPECT_EQ(json("D maj --tuning 64,59,55,50,45,38")["positions"][0], Json::parse("[0,0,0,2,3,2]"));
  // A reach of two frets leaves the open C out.
  const Json court = json("C maj --params 2,9,10,2,50,12,3");
  for (const auto& p : court["positions"])
    EXPECT_NE(p, Json::parse("[-1,3,2,0,1,0]"));
  // Create mode: minor base, the seventh added.
  const Json am7 = json("A --create m,,,,add7");
  EXPECT_EQ(am7["name"], "Amadd7");
  EXPECT_EQ(am7["positions"][0], Json::parse("[-1,0,2,0,1,0]"));
  EXPECT_EQ(json("A --create dim,add2")["name"], "Adim");
}

TEST_F(ChordsCli, BadInputIsRefusedOrFindsNothing) {
  const struct {
    const char* arguments;
    int code;
    const char* message;
  } cas[] = {
      {"H maj", 1, "Unknown key (H)"},
      {"C major", 1, "Unknown chord type (major)"},
      {"C --create M,add8", 1, "Unknown chord type"},
      {"C --create X", 1, "Unknown chord type"},
      {"--lang fr chords C major", 1, "Type d'accord inconnu"},
      {"C", 2, "give a TYPE"},
      {"C maj --create m", 2, "excludes"},
      {"C maj --params 1,2,3", 2, ""},
      {"C maj --params 4,9,10,2,50,12,256", 2, ""},
      {"C maj --tuning 64,59,x", 2, ""},
  };
  for (const auto& c : cas) {
    SCOPED_TRACE(c.arguments);
    const std::string a = c.arguments;
    const Résultat r = lancer(a.rfind("--lang", 0) == 0 ? a : "chords " + a);
    EXPECT_EQ(r.code, c.code);
    EXPECT_NE(r.erreurs.find(c.message), std::string::npos) << r.erreurs;
    if (c.code != 0) {
      EXPECT_EQ(r.sortie.find("positions"), std::string::npos);
    }
  }
  // Three strings or eight: no fingering, said on the error stream.
  for (const char* accordage : {"64,59,55", "64,59,55,50,45,40,35,30"}) {
    const Résultat r = lancer(std::string("chords C maj --tuning ") + accordage);
    EXPECT_EQ(r.code, 0);
    EXPECT_EQ(Json::parse(r.sortie)["positions"], Json::array());
    EXPECT_NE(r.erreurs.find("No fingering found"), std::string::npos);
  }
  // Parameters at their limits still answer.
  EXPECT_FALSE(json("C 13 --params 255,255,255,255,255,255,255")["positions"].empty());
  EXPECT_TRUE(json("C maj --params 0,0,0,0,0,0,0")["positions"].empty());
}

}  // namespace
}  // namespace vt

// vantoro-cli's dictionaries as a user runs them: chords (the answer as JSON
// and the refusals), scales, scale and identify on the shipped scale file and
// on damaged ones.
#include "cli_banc.h"

namespace vt {
namespace {

using nlohmann::json;

class CliGammes : public CliBanc {
 protected:
  std::vector<std::string> lignes(const std::string& args) {
    std::vector<std::string> l;
    for (const auto& m : jsonDe(args))
      l.push_back(m["line"]);
    return l;
  }
};

TEST_F(CliGammes, ScalesListsEveryRecordWithItsKindInTheLanguage) {
  const json en = jsonDe("scales");
  const json fr = jsonDe("--lang fr scales");
  ASSERT_GT(en.size(), 40u);
  EXPECT_EQ(en.size(), fr.size());
  EXPECT_EQ(en[0], (json{{"number", 1}, {"name", "Major scale"}, {"kind", "scale"}}));
  EXPECT_EQ(fr[0]["name"], "Gamme majeure");
  std::map<std::string, std::string> genres;
  for (const auto& g : en)
    genres[g["name"]] = g["kind"];
  EXPECT_EQ(genres["Dorian mode (II)"], "mode");
  EXPECT_EQ(genres["Chord 7"], "chord");
  EXPECT_EQ(genres["Single note"], "single");
  const std::string sortie = lancer("scales").sortie;
  EXPECT_EQ(std::count(sortie.begin(), sortie.end(), '\n'), static_cast<long>(en.size()) + 2)
      << "one record a line";
}

TEST_F(CliGammes, ScaleGivesItsBytesNotesIntervalsAndFrets) {
  const json dorien = jsonDe("scale 'Dorian mode (II)' C");
  EXPECT_EQ(dorien["title"], "Dorian mode (II) of C");
  EXPECT_EQ(dorien["demitons"], (json{0, 255, 2, 3, 255, 5, 255, 7, 255, 9, 10, 255}));
  EXPECT_EQ(dorien["notes"], (json{"C", "D", "D#", "F", "G", "A", "A#"}));
  EXPECT_EQ(dorien["intervals"], (json{"1", "2", "3b", "4", "5", "6", "7b"}));
  EXPECT_EQ(dorien["play"], (json{48, 50, 51, 53, 55, 57, 58, 60}));
  ASSERT_EQ(dorien["strings"].size(), 6u);
  EXPECT_EQ(dorien["strings"][0]["open"], 64);
  EXPECT_EQ(dorien["strings"][0]["roots"], (json{8, 20}));
  EXPECT_EQ(dorien["strings"][0]["frets"].front(), 1);  // F
  EXPECT_EQ(dorien["strings"][0]["frets"].back(), 23);  // D#

  // In its parent's key: C major's notes, root on D. A name, a number, either language.
  const json parent = jsonDe("--lang fr scale 'mode DORIEN (ii)' Do --mode 1");
  EXPECT_EQ(parent["title"], "Mode dorien (II) de Do");
  EXPECT_EQ(parent["demitons"], (json{10, 255, 0, 255, 2, 3, 255, 5, 255, 7, 255, 9}));
  EXPECT_EQ(parent["semitones"].front(), 10);
  EXPECT_EQ(jsonDe("scale 1 Bb")["notes"], (json{"A#", "C", "D", "D#", "F", "G", "A"}));

  // Another tuning: a bass in fourths.
  const json basse = jsonDe("scale 'Single note' A --tuning G2,D2,A1,E1");
  EXPECT_EQ(basse["title"], "A");
  EXPECT_EQ(basse["strings"].size(), 4u);
  EXPECT_EQ(basse["strings"][2],
            (json{{"string", 3}, {"open", 33}, {"frets", {0, 12, 24}}, {"roots", {0, 12, 24}}}));
}

TEST_F(CliGammes, IdentifyListsWhatTheHarmoniserLists) {
  EXPECT_EQ(lignes("identify C E G"), std::vector<std::string>{"Chord major of C"});
  EXPECT_EQ(lignes("identify 60 64 67 72 E4"), std::vector<std::string>{"Chord major of C"})
      << "a set of pitch classes: octaves and repeats count once";
  const json m = jsonDe("identify C Eb Gb A");
  ASSERT_EQ(m.size(), 4u);
  EXPECT_EQ(m[1], (json{{"line", "Chord dim7 of D#"},
                        {"number", 34},
                        {"name", "Chord dim7"},
                        {"kind", "chord"},
                        {"root", "D#"}}));
  EXPECT_EQ(lignes("--lang fr identify Do"), std::vector<std::string>{"Note seule de Do"});
  const auto modes = lignes("identify C D E F G A B --mode 1");
  EXPECT_NE(std::find(modes.begin(), modes.end(), "Dorian mode (II) of C"), modes.end());
  const json accords = jsonDe("identify D B --harmonise");
  ASSERT_FALSE(accords.empty());
  EXPECT_EQ(accords.size() % 2, 0u);
  EXPECT_EQ(accords[0]["line"], "Chord 5 (power chord) of D");
}

TEST_F(CliGammes, BadInputIsRefusedWithItsMessage) {
  const struct {
    std::string args;
    int code;
    std::string message;  // stderr whole when it ends a line, else a part of it
  } cas[] = {
      {"identify C H", 1, "Unknown note (H)\n"},
      {"--lang fr identify 200", 1, "Note inconnue (200)\n"},
      {"scale 'No such scale' C", 1, "Unknown scale (No such scale)\n"},
      {"scale 1 Q", 1, "Unknown key (Q)\n"},
      {"scale 1 C --tuning 64,,59", 1,
       "Bad tuning: one to seven notes separated by commas (64,,59)\n"},
      {"scale 1 C --tuning 1,2,3,4,5,6,7,8", 1,
       "Bad tuning: one to seven notes separated by commas (1,2,3,4,5,6,7,8)\n"},
      {"scale 1 C --mode 3", 2, ""},
      {"chords H maj", 1, "Unknown key (H)"},
      {"chords C major", 1, "Unknown chord type (major)"},
      {"chords C --create M,add8", 1, "Unknown chord type"},
      {"chords C --create X", 1, "Unknown chord type"},
      {"--lang fr chords C major", 1, "Type d'accord inconnu"},
      {"chords C", 2, "give a TYPE"},
      {"chords C maj --create m", 2, "excludes"},
      {"chords C maj --params 1,2,3", 2, ""},
      {"chords C maj --params 4,9,10,2,50,12,256", 2, ""},
      {"chords C maj --tuning 64,59,x", 2, ""},
  };
  for (const auto& k : cas) {
    SCOPED_TRACE(k.args);
    const Résultat r = lancer(k.args);
    EXPECT_EQ(r.code, k.code);
    EXPECT_TRUE(r.sortie.empty());
    if (k.message.ends_with('\n'))
      EXPECT_EQ(r.erreurs, k.message);
    else
      EXPECT_NE(r.erreurs.find(k.message), std::string::npos) << r.erreurs;
  }
}

TEST_F(CliGammes, ADamagedScaleFileGivesWhatItHolds) {
  // One record with bytes above 11 and control bytes in its names, and a stray tail.
  std::string record(92, ' ');
  record.replace(0, 12, std::string("\0\x05\xFF\xFF\x0C\xFF\xFF\xFF\xFF\xFF\xFF\xFF", 12));
  record.replace(12, 6, std::string("Mo\0de\x01", 6));
  record.replace(52, 4, "Odd\t");
  const std::string f = poser("scales.dat", record + "tail");
  EXPECT_EQ(jsonDe("scales --scales-file " + f),
            (json{{{"number", 1}, {"name", "Odd?"}, {"kind", "scale"}}}));
  const json s = jsonDe("scale 1 C --scales-file " + f);
  EXPECT_EQ(s["semitones"], (json{0, 5, 12}));
  EXPECT_EQ(s["intervals"], (json{"1", "4", ""}));
  EXPECT_EQ(lignes("identify C C# E --scales-file " + f), std::vector<std::string>{"Odd? of C"});
  EXPECT_EQ(jsonDe("identify C --scales-file " + poser("empty.dat", "")), json::array());

  const Résultat r = lancer("identify C --scales-file " + c("missing.dat"));
  EXPECT_EQ(r.code, 1);
  EXPECT_EQ(r.erreurs, "The file " + (dossier_ / "missing.dat").string() + " is missing!\n");
}

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

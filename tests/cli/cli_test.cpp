// vantoro-cli end to end: new, info, dump and convert on files built by hand.
#include "cli_banc.h"
#include "formats/ascii_import.h"
#include "formats/catalogue.h"
#include "formats/midi_reader.h"
#include "formats/string_table.h"
#include "formats/vtb.h"
#include "old_files.h"

namespace vt {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;

using Cli = CliBanc;

// The tool's catalogue is the vt.ini beside it.
CatalogueGuitares catalogueDuProgramme() {
  return CatalogueGuitares::load(fs::path(VT_CLI).parent_path() / kFichierCatalogue);
}

TEST_F(Cli, NewWritesTheBytesOfANewDocument) {
  const Résultat e = lancer("new " + c("a.vtb"));
  ASSERT_EQ(e.code, 0) << e.erreurs;
  EXPECT_TRUE(e.erreurs.empty());
  const CVantoroTablature attendu(catalogueDuProgramme().loadGuitare(1, kLangAnglais));
  const VtbEcriture octets = io_enregistrer_vtb(attendu);
  EXPECT_EQ(lireTout(dossier_ / "a.vtb"), std::string(octets.octets.begin(), octets.octets.end()));

  ASSERT_EQ(lancer("--lang fr new " + c("fr.vtb")).code, 0);
  const json d = jsonDe("dump " + c("fr.vtb"));
  EXPECT_EQ(d["pistes"][0]["strGuitareNom"], "Guitare, accordage standard");
  EXPECT_EQ(d["pistes"][0]["bytCordes"], json({64, 59, 55, 50, 45, 40}));
}

TEST_F(Cli, DumpShowsEveryFieldOfAVersion5File) {
  poser("v5.vtb", test::fichierVersion5({64, 59, 55, 50, 45, 38}));
  const json d = jsonDe("dump " + c("v5.vtb"));
  EXPECT_EQ((json{d["titre"], d["Auteur"], d["tempo"], d["TripleFeel"], d["mesures"].size()}),
            (json{"Titre été", "Auteur", 132, false, 3}));
  EXPECT_EQ(d["mesures"][0], json::parse(R"({"bytSignatureUp":3,"bytSignatureDn":4,"bytTonalité":8,
      "bytLoopGaucheType":0,"bytLoopGaucheData":0,"bytLoopDroiteType":1,"bytLoopDroiteData":0,"tempos":[]})"));
  const json& piste = d["pistes"][0];
  EXPECT_EQ((json{d["mesures"][1]["bytLoopDroiteType"], d["mesures"][1]["bytLoopDroiteData"],
                  piste["strGuitareNom"], piste["bytNbrCordes"], piste["boolPlaySolo"]}),
            (json{2, 2, "Guitar, drop D", 6, false}));
  const json& m1 = piste["mesures"][0];
  EXPECT_EQ(m1["accords"],
            json::parse(R"([{"intX":48,"strNom":"C","tabCordes":[0,1,0,2,3,255]}])"));
  EXPECT_EQ(m1["textesUp"], json::parse(R"([{"intX":48,"strContenu":"Intro"}])"));
  EXPECT_EQ(m1["textesDn"], json::parse(R"([{"intX":48,"strContenu":"doux"}])"));
  ASSERT_EQ(m1["cordes"].size(), 6u);
  EXPECT_EQ(m1["cordes"][1], json::parse(R"([{"bytCase":1,"bytDurée":48,"intX":0,"bytEffet":20,
      "bytAttaque":6,"bytVolume":127}])"));
  EXPECT_EQ(m1["cordes"][2][0]["bytEffet"], 27);
  EXPECT_EQ(m1["cordes"][3], json::array());
  EXPECT_EQ(d["markers"], json::parse(R"({"startMesure":1,"startX":0,"stopMesure":1,"stopX":0})"));
}

TEST_F(Cli, InfoSummarisesAFileAndConvertUpgradesItToVersion8) {
  poser("v7.vtb", test::fichierVersion7());
  EXPECT_EQ(
      jsonDe("info " + c("v7.vtb")),
      json::parse(
          R"({"format":"vtb","version":7,"tracks":2,"bars":2,"notes":4,"title":"Titre été"})"));
  const Résultat e = lancer("convert " + c("v7.vtb") + " " + c("v8.VTB"));
  ASSERT_EQ(e.code, 0) << e.erreurs;
  EXPECT_EQ(lireTout(dossier_ / "v8.VTB")[3], 8);
  EXPECT_EQ(jsonDe("info " + c("v8.VTB"))["version"], 8);
  EXPECT_EQ(jsonDe("dump " + c("v8.VTB")), jsonDe("dump " + c("v7.vtb")));
}

TEST_F(Cli, RefusedFilesAndBadUsageWriteNothingAndSayWhy) {
  poser("vide.vtb", "");
  auto coupé = test::fichierVersion7();
  coupé.resize(coupé.size() / 2);
  poser("cut.vtb", coupé);
  poser("new.vtb", std::string("VTB\x09\x01"));
  poser("v6.vtb", test::fichierVersion6());
  poser("x.mid", "RIFF....");
  // One track: a Note On, then the unknown status F4.
  poser("y.mid", std::string("MThd\0\0\0\6\0\1\0\1\0\x60MTrk\0\0\0\x0A"
                             "\0\x90\x40\x64\x05\xF4\x04\xFF\x2F\0",
                             32));
  poser("z.txt", "no tablature in here\n");
  // A repeat opened and never closed: the export names the last bar, the one the closing line took.
  poser("r.txt",
        "e||o---0---|\nB||----1---|\nG||o-------|\nD||o-------|\nA||--------|\nE||--------|\n");
  const std::string v7 = "convert " + poser("v7.vtb", test::fichierVersion7()) + " ";
  const struct {
    std::string arguments;
    int code;
    std::string erreurs;  // stderr, or its start when it does not end a line
  } cas[] = {
      {"info " + c("vide.vtb"), 1, "Bad file size!\nThis is not a VTB file!\n"},
      {"--lang fr convert " + c("vide.vtb") + " " + c("out.vtb"), 1,
       "Taille de fichier incorrecte !\nCe n'est pas un fichier VTB !\n"},
      {"dump " + c("cut.vtb"), 1, "Bad file size! ("},
      {"info " + c("new.vtb"), 1,
       "Too recent VTB file! Please obtain the latest version of Vantoro.\n"},
      {"info " + c("absent.vtb"), 1, "This file is missing."},
      {"convert " + c("v6.vtb") + " " + c("gone/out.vtb"), 1,
       loadString(msg::kEcritureImpossible, kLangAnglais)},
      {"convert " + c("v6.vtb") + " " + c("out.xyz"), 2, ""},
      {"new " + c("x.txt2"), 2, ""},
      {"", 2, ""},
      {"info", 2, ""},
      {"--lang de info " + c("v6.vtb"), 2, ""},
      {"convert " + c("x.mid") + " " + c("out.vtb"), 1, "This MIDI file is not valid!\n"},
      {"convert " + c("y.mid") + " " + c("out.txt"), 1, "Unknown command: F4\n"},
      {"--lang fr convert " + c("z.txt") + " " + c("out.mid"), 1,
       loadString(kMsgAsciiCorrompue, kLangFrançais) + "\n"},
      {"convert " + c("r.txt") + " " + c("out.mid"), 1,
       "There is a problem of repeat bar at measure 2\n"},
      {v7 + c("out.txt") + " --rhythm 50", 2, ""},
      {v7 + c("out.mid") + " --tempos maybe", 2, ""},
      {v7 + c("out.txt") + " --track 3", 2, "--track: the tablature has 2 tracks\n"},
  };
  for (const auto& k : cas) {
    SCOPED_TRACE(k.arguments);
    const Résultat e = lancer(k.arguments);
    EXPECT_EQ(e.code, k.code);
    if (k.erreurs.ends_with('\n'))
      EXPECT_EQ(e.erreurs, k.erreurs);
    else
      EXPECT_EQ(e.erreurs.rfind(k.erreurs, 0), 0u) << e.erreurs;
    EXPECT_TRUE(e.sortie.empty());
  }
  for (const char* nom : {"out.vtb", "out.xyz", "x.txt2", "gone", "out.txt", "out.mid"})
    EXPECT_FALSE(fs::exists(dossier_ / nom)) << nom;
}

}  // namespace
}  // namespace vt

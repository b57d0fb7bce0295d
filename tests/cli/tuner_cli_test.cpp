// vantoro-cli pitch and metronome, run as a user runs them: a tablature's
// open string rendered to WAV by the tool itself and measured back, the
// files it refuses, and the metronome's clicks with their accent.
#include <cmath>
#include <cstdint>
#include <sstream>

#include "cli_banc.h"
#include "formats/string_table.h"
#include "formats/vtb.h"

namespace vt {
namespace {

using nlohmann::json;

class CliAccordeur : public CliBanc {
 protected:
  // A 16-bit mono WAV of `n` samples from `échantillon(i)`, or its first
  // `coupe` bytes.
  template <class F>
  void wav(const std::string& nom, std::uint32_t n, F échantillon, std::size_t coupe = 0) {
    // Format chunk: 16 bytes, PCM, mono, 44100 Hz, 88200 bytes a second, 2 to a sample, 16 bits.
    std::string o("RIFF____WAVEfmt \x10\0\0\0\1\0\1\0\x44\xAC\0\0\x88\x58\1\0\2\0\x10\0data", 40);
    const auto octets = [&](std::uint32_t v, int k) {
      for (int i = 0; i < k; ++i)
        o.push_back(char(v >> (8 * i)));
    };
    octets(2 * n, 4);
    for (std::uint32_t i = 0; i < n; ++i)
      octets(static_cast<std::uint16_t>(échantillon(i)), 2);
    if (coupe) o.resize(coupe);
    std::ofstream(dossier_ / nom, std::ios::binary) << o;
  }
};

TEST_F(CliAccordeur, PitchOfAnOpenStringTheToolRendered) {
  // The low E string, open, for a whole bar at tempo 60.
  CVantoroTablature doc(tGuitare{});
  doc.tempo = 60;
  doc.setNoteVolume(1, 1, 6, doc.setNoteWhole(1, 1, 6, 0, 0, 192), 110);
  ASSERT_TRUE(io_enregistrer_vtb(doc, dossier_ / "e.vtb").ok());
  ASSERT_EQ(lancer("convert " + c("e.vtb") + " " + c("e.wav")).code, 0);

  const json j = jsonDe("pitch " + c("e.wav"));
  EXPECT_EQ(std::tuple(j["midi"], j["note"], j["string"]), std::tuple(40, "E", 6));
  // The SoundFont's own sample lies a few cents off its nominal pitch.
  EXPECT_NEAR(j["hz"].get<double>(), 82.41, 0.5);
  EXPECT_LT(std::abs(j["cents"].get<double>()), 10);
  EXPECT_GT(j["voiced"].get<int>(), 20);
  EXPECT_LE(j["voiced"].get<int>(), j["frames"].get<int>());
  EXPECT_FALSE(j.contains("frame_list"));

  // One string only: it is string 1. Each frame listed, in time order.
  const json k = jsonDe("pitch " + c("e.wav") + " --tuning 45 --frames");
  EXPECT_EQ(k["string"], 1);
  ASSERT_EQ(k["frame_list"].size(), k["frames"].get<std::size_t>());
  double t = -1;
  for (const json& trame : k["frame_list"]) {
    EXPECT_GT(trame["t"].get<double>(), t);
    t = trame["t"].get<double>();
    EXPECT_TRUE(trame["hz"].is_null() || trame["string"] == 1);
  }
}

TEST_F(CliAccordeur, SilenceHasNoPitchAndBadFilesAreRefused) {
  wav("silence.wav", 44100, [](std::uint32_t) { return 0; });
  const json j = jsonDe("pitch " + c("silence.wav"));
  EXPECT_EQ(j["voiced"], 0);
  EXPECT_GT(j["frames"].get<int>(), 0);
  for (const char* champ : {"hz", "midi", "note", "cents", "string"})
    EXPECT_TRUE(j[champ].is_null()) << champ;

  wav(
      "court.wav", 44100, [](std::uint32_t i) { return int(1000 * std::sin(i * 0.01)); }, 3000);
  std::ofstream(dossier_ / "texte.wav") << "not a sound";
  struct Cas {
    std::string arguments;
    int code;
    std::string message;  // the start of stderr
  };
  const Cas cas[] = {
      {"pitch " + c("court.wav"), 1, loadString(3108, kLangAnglais)},
      {"--lang fr pitch " + c("court.wav"), 1, loadString(3108, kLangFrançais)},
      {"pitch " + c("texte.wav"), 1, loadString(3110, kLangAnglais)},
      {"pitch " + c("absent.wav"), 1, loadString(6001, kLangAnglais)},
      {"pitch " + c("silence.wav") + " --tuning 64,x", 2, "--tuning"},
      {"pitch " + c("silence.wav") + " --tuning 1,2,3,4,5,6,7,8", 2, "--tuning"},
      {"pitch " + c("silence.wav") + " --tuning 128", 2, "--tuning"},
  };
  for (const Cas& k : cas) {
    SCOPED_TRACE(k.arguments);
    const Résultat r = lancer(k.arguments);
    EXPECT_EQ(r.code, k.code);
    EXPECT_EQ(r.erreurs.rfind(k.message, 0), 0u) << r.erreurs;
    EXPECT_TRUE(r.sortie.empty());
  }
}

TEST_F(CliAccordeur, MetronomeLogShowsTheClicksAndTheirAccent) {
  struct Clic {
    double ms;
    int note;
  };
  const auto clics = [](const std::string& sortie, std::string& premier) {
    std::vector<Clic> r;
    std::istringstream in(sortie);
    std::string ligne;
    int ouvertes = 0;
    while (std::getline(in, ligne)) {
      std::istringstream l(ligne);
      double ms;
      std::string statut, note, vélocité;
      l >> ms >> statut >> note >> vélocité;
      if (premier.empty()) premier = statut + " " + note;
      if (statut == "99") {
        r.push_back({ms, std::stoi(note, nullptr, 16)});
        ++ouvertes;
      } else if (statut == "89") {
        --ouvertes;
      }
    }
    EXPECT_EQ(ouvertes, 0) << "every click released";
    return r;
  };
  // Three beats to the bar at 600 (a beat every 100 ms), two bars.
  const Résultat r = lancer("metronome --tempo 600 --beats 3 --bars 2 --log");
  ASSERT_EQ(r.code, 0) << r.erreurs;
  std::string premier;
  const std::vector<Clic> c = clics(r.sortie, premier);
  EXPECT_EQ(premier, "C9 00");  // the drum kit on channel 10
  ASSERT_EQ(c.size(), 6u);
  for (std::size_t i = 0; i < c.size(); ++i) {
    EXPECT_EQ(c[i].note, i % 3 == 0 ? 33 : 34) << "click " << i;
    if (i > 0) {
      EXPECT_GT(c[i].ms - c[0].ms, 100.0 * double(i) - 1) << "never early";
    }
  }

  const Résultat s = lancer("metronome --tempo 600 --beats 3 --bars 1 --no-accent --log");
  ASSERT_EQ(s.code, 0) << s.erreurs;
  premier.clear();
  const std::vector<Clic> d = clics(s.sortie, premier);
  ASSERT_EQ(d.size(), 3u);
  for (const Clic& k : d)
    EXPECT_EQ(k.note, 34);

  for (const char* faux : {"--tempo 0", "--tempo 1000", "--tempo 120 --beats 17", "--bars 2"})
    EXPECT_EQ(lancer(std::string("metronome --log ") + faux).code, 2) << faux;
}

}  // namespace
}  // namespace vt

// vantoro-cli's sound commands run as a user runs them: play --log, convert to
// .wav, pitch on a tablature's open string the tool rendered and on the files
// it refuses, and the metronome's clicks with their accent.
#include <cmath>
#include <cstdint>
#include <map>
#include <sstream>

#include "cli_banc.h"
#include "formats/catalogue.h"
#include "formats/string_table.h"
#include "formats/vtb.h"

namespace vt {
namespace {

namespace fs = std::filesystem;

struct Ligne {
  double ms = 0;
  std::string octets;
};

// The lines of a --log: milliseconds, then the message's bytes in hex.
std::vector<Ligne> lignes(const std::string& texte) {
  std::vector<Ligne> r;
  std::istringstream in(texte);
  std::string l;
  while (std::getline(in, l)) {
    const auto espace = l.find(' ');
    r.push_back({std::stod(l.substr(0, espace)), l.substr(espace + 1)});
  }
  return r;
}

class CliPlay : public CliBanc {
 protected:
  // Two notes in bars of 2/4: fret 5 on string 1 at X 0, fret 7 on string 2
  // at X 48, each an eighth long.
  void morceau(const std::string& nom, int tempo = 120, int mesures = 1) {
    CVantoroTablature doc(tGuitare{});
    doc.tempo = static_cast<byt>(tempo);
    doc.setMesureSignature(1, 2, 4);
    for (int m = 2; m <= mesures; ++m)
      doc.addMesure();
    doc.setNoteVolume(1, 1, 1, doc.setNoteWhole(1, 1, 1, 0, 5, 24), 100);
    doc.setNoteVolume(1, 1, 2, doc.setNoteWhole(1, 1, 2, 48, 7, 24), 100);
    ASSERT_TRUE(io_enregistrer_vtb(doc, dossier_ / nom).ok());
  }
};

TEST_F(CliPlay, BeatsAndMarkersAndRefusals) {
  morceau("a.vtb", 120, 2);
  Résultat r = lancer("play " + c("a.vtb") + " --tempo 255 --log --beats --from 2");
  ASSERT_EQ(r.code, 0) << r.erreurs;
  int clics = 0;
  for (const Ligne& l : lignes(r.sortie))
    clics += l.octets == "90 21 7F" ? 1 : 0;
  EXPECT_EQ(clics, 2);  // a bar of 2/4: two clicks, on channel 1 (the setting's default)
  // Each time with three decimals.
  std::istringstream in(r.sortie);
  for (std::string ligne; std::getline(in, ligne);) {
    const std::string temps = ligne.substr(0, ligne.find(' '));
    EXPECT_EQ(temps.size() - temps.find('.'), 4u) << ligne;
  }

  // Both markers at bar 1, X 0; no bar 3; no file.
  for (const auto& [arguments, code, message] :
       {std::tuple{" --markers", 2, "--markers"}, {" --from 3", 2, ""}, {"", 1, ""}}) {
    r = lancer("play " + c(code == 1 ? "absent.vtb" : "a.vtb") + arguments + " --log");
    EXPECT_EQ(r.code, code) << arguments;
    EXPECT_NE(r.erreurs.find(message), std::string::npos);
    EXPECT_TRUE(r.sortie.empty());
  }
}

TEST_F(CliPlay, LoopStopsCleanlyOnCtrlC) {
  morceau("a.vtb");
  const Résultat r = lancer("play " + c("a.vtb") + " --tempo 255 --log --loop",
                            "timeout --preserve-status -s INT 0.8");
  EXPECT_EQ(r.code, 0) << r.erreurs;
  // Nothing is left sounding: every key's last message is a Note Off. (The
  // release of the held notes at the stop may meet a note's own Note Off
  // sent at the same moment; a second Note Off is harmless.)
  int on = 0;
  std::map<std::string, bool> sonne;
  for (const Ligne& l : lignes(r.sortie)) {
    const bool enfoncée = l.octets.rfind("90 ", 0) == 0;
    if (!enfoncée && l.octets.rfind("80 ", 0) != 0) continue;
    on += enfoncée ? 1 : 0;
    sonne[l.octets.substr(3, 2)] = enfoncée;
  }
  EXPECT_GE(on, 3);  // a bar of 2/4 lasts 470 ms: it went round at least once
  for (const auto& [note, enfoncée] : sonne)
    EXPECT_FALSE(enfoncée) << "note " << note << " left sounding";
}

TEST_F(CliPlay, ConvertToWavRefusesABrokenRepeatAndWritesNothing) {
  CVantoroTablature doc(tGuitare{});
  doc.addMesure();
  doc.setMesureLoopGaucheType(2, barre::kRepetition);  // a start without an end
  ASSERT_TRUE(io_enregistrer_vtb(doc, dossier_ / "b.vtb").ok());
  const Résultat r = lancer("convert " + c("b.vtb") + " " + c("b.wav"));
  EXPECT_EQ(r.code, 1);
  EXPECT_EQ(r.erreurs, loadString(1301, kLangAnglais) + "2\n");
  EXPECT_FALSE(fs::exists(dossier_ / "b.wav"));
}

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
  // The clicks of a log (Note On of channel 10) as notes, after checking that
  // the log opens on the drum kit and releases every click.
  const auto clics = [](const std::string& sortie, std::vector<double>* ms = nullptr) {
    const std::vector<Ligne> l = lignes(sortie);
    EXPECT_EQ(l.empty() ? "" : l[0].octets.substr(0, 5), "C9 00");  // the drum kit on channel 10
    std::vector<int> notes;
    int ouvertes = 0;
    for (const Ligne& k : l) {
      ouvertes += k.octets.rfind("99 ", 0) == 0 ? 1 : k.octets.rfind("89 ", 0) == 0 ? -1 : 0;
      if (k.octets.rfind("99 ", 0) != 0) continue;
      notes.push_back(std::stoi(k.octets.substr(3, 2), nullptr, 16));
      if (ms != nullptr) ms->push_back(k.ms);
    }
    EXPECT_EQ(ouvertes, 0) << "every click released";
    return notes;
  };
  // Three beats to the bar at 600 (a beat every 100 ms), two bars; the accent on the first.
  const Résultat r = lancer("metronome --tempo 600 --beats 3 --bars 2 --log");
  ASSERT_EQ(r.code, 0) << r.erreurs;
  std::vector<double> ms;
  EXPECT_EQ(clics(r.sortie, &ms), (std::vector<int>{33, 34, 34, 33, 34, 34}));
  for (std::size_t i = 1; i < ms.size(); ++i)
    EXPECT_GT(ms[i] - ms[0], 100.0 * double(i) - 1) << "click " << i << " never early";
  const Résultat s = lancer("metronome --tempo 600 --beats 3 --bars 1 --no-accent --log");
  ASSERT_EQ(s.code, 0) << s.erreurs;
  EXPECT_EQ(clics(s.sortie), (std::vector<int>{34, 34, 34}));

  for (const char* faux : {"--tempo 0", "--tempo 1000", "--tempo 120 --beats 17", "--bars 2"})
    EXPECT_EQ(lancer(std::string("metronome --log ") + faux).code, 2) << faux;
}

}  // namespace
}  // namespace vt

// Helpers of the MIDI and ASCII tests: building documents, recording the walk,
// running the independent reader midicsv on files.
#pragma once

#include <cstdint>
#include <filesystem>
#include <initializer_list>
#include <span>
#include <string>
#include <vector>

#include "document/tablature.h"
#include "formats/midi_walk.h"

namespace vt::test {

// A note through setNoteWhole, then its effect, attack and nuance.
int poser(CVantoroTablature& doc, int p, int m, int c, int x, int frette, int durée, int effet = 0,
          int attaque = 0, int volume = 127);

// A document of `mesures` 4/4 bars and `pistes` standard six-string tracks.
CVantoroTablature document(int mesures, int pistes = 1);

// Every note of a track as "bar:string:X:fret", in bar, string, X order.
std::vector<std::string> notes(const CVantoroTablature& doc, int piste = 1);

// Every event of a walk, with a copy of the starting note.
struct Enregistreur : WalkSink {
  struct Evt {
    WalkEvent e;
    tNote note;
  };
  std::vector<Evt> evts;
  void event(const WalkEvent& e) override {
    evts.push_back({e, e.note != nullptr ? *e.note : tNote{}});
    evts.back().e.note = nullptr;
  }
  std::vector<Evt> deType(WalkEventType t) const;
};

// Walks the whole input of a document.
Enregistreur marcher(const CVantoroTablature& doc, WalkOptions o = {});

std::vector<std::uint8_t> octets(std::initializer_list<int> l);
std::string hex(std::span<const std::uint8_t> o);
// Bytes written as hex pairs separated by blanks: "4D 54 68 64".
std::vector<std::uint8_t> deHex(const std::string& s);

// A fresh path in the temporary folder, removed when the holder goes.
struct Temporaire {
  explicit Temporaire(const std::string& nom);
  ~Temporaire();
  std::filesystem::path chemin;
};

// Runs a shell command; its standard output, and its exit code in `code`.
std::string exécuter(const std::string& commande, int* code = nullptr);

// midicsv's listing of a file: one row per record, fields trimmed.
std::vector<std::vector<std::string>> midicsv(std::span<const std::uint8_t> fichier);

std::vector<std::uint8_t> lireOctets(const std::filesystem::path& p);

}  // namespace vt::test

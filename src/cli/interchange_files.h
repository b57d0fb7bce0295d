// MIDI files and ASCII tablature on the command line: what `convert` (and
// `info`, `dump`) do with ".mid"/".midi" and ".txt"/".tab", and their options.
#pragma once

#include <filesystem>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "command.h"
#include "document/tablature.h"
#include "formats/ascii_export.h"
#include "formats/ascii_import.h"
#include "formats/midi_export.h"
#include "formats/midi_import.h"
#include "formats/string_table.h"

namespace vt::cli {

struct OptionsFormats {
  bool rmtf = false;            // MIDI export: the tablature meta-events
  std::vector<int> pistesMidi;  // MIDI import: the sources, in the order of the target tracks
  int transposition = 0;        // MIDI import: semitones
  bool tempos = true;           // MIDI import: take the tempo changes
  int piste = 0;                // ASCII export: the track written (0: the first); PDF: 0 all
  std::string papier;           // PDF: "a4" or "letter"; empty for the system's
  int rythme = 24;              // ASCII import: ticks of a text column
  int largeur = kASCIILargeurParDéfaut;  // ASCII export: the widest block
};

inline bool estMidi(const std::string& ext) { return ext == ".mid" || ext == ".midi"; }
inline bool estTexte(const std::string& ext) { return ext == ".txt" || ext == ".tab"; }

// The refusal of a reader or writer. A message that ends on what it names
// (the unknown byte, the bar of a broken repeat) is followed by it directly.
inline void refuserInterchange(Context& ctx, const InterchangeResult& r) {
  if (r.stringId == kMsgMidiCommandeInconnue || r.stringId == 1301) {
    std::cerr << loadString(r.stringId, ctx.setLang) << r.détail << '\n';
    ctx.exitCode = kRefused;
    return;
  }
  refuse(ctx, r.stringId, r.détail);
}

// A MIDI file as a new document: the tracks (format 1) or channels (format 0)
// asked, else every one that holds notes, up to seven. The notice of a format
// 0 file goes to stderr without failing.
inline std::optional<CVantoroTablature> lireMidiCli(Context& ctx, const std::filesystem::path& f,
                                                     const OptionsFormats& o,
                                                     const tGuitare& guitare, int& formatSmf) {
  MidiFichier fichier;
  InterchangeResult r = ouvrirMidi(f.string(), fichier);
  if (!r.ok()) {
    refuserInterchange(ctx, r);
    return std::nullopt;
  }
  for (int id : r.notices) std::cerr << loadString(id, ctx.setLang) << '\n';
  formatSmf = fichier.format;
  MidiImportOptions io;
  io.sources = o.pistesMidi.empty() ? sourcesParDéfaut(sourcesMidi(fichier, ctx.setLang))
                                    : o.pistesMidi;
  io.transposition = o.transposition;
  io.tempos = o.tempos;
  io.guitare = guitare;
  CVantoroTablature doc(guitare);
  r = convertirMidi(fichier, io, doc);
  if (!r.ok()) {
    // Without a choice, a file of no notes has nothing to take.
    if (r.stringId == kMsgMidiAucuneCible && o.pistesMidi.empty()) r.stringId = kMsgMidiPisteSansNote;
    refuserInterchange(ctx, r);
    return std::nullopt;
  }
  return doc;
}

inline std::optional<CVantoroTablature> lireTexteCli(Context& ctx, const std::filesystem::path& f,
                                                      const OptionsFormats& o,
                                                      const tGuitare& guitare) {
  AsciiImportOptions io;
  io.rythme = o.rythme;
  io.guitare = guitare;
  CVantoroTablature doc(guitare);
  const InterchangeResult r = importerAscii(f.string(), io, doc);
  if (!r.ok()) {
    refuserInterchange(ctx, r);
    return std::nullopt;
  }
  return doc;
}

inline bool écrireMidiCli(Context& ctx, CVantoroTablature& doc, const std::filesystem::path& f,
                          const OptionsFormats& o) {
  MidiExportOptions e;
  e.rmtf = o.rmtf;
  const InterchangeResult r = exporterMidi(doc, f.string(), e);
  if (!r.ok()) refuserInterchange(ctx, r);
  return r.ok();
}

// A usage error unless the tablature has track `piste` (0 stands for a default).
inline bool pisteExiste(Context& ctx, const CVantoroTablature& doc, int piste) {
  if (piste <= doc.getPisteLast()) return true;
  std::cerr << "--track: the tablature has " << doc.getPisteLast() << " track"
            << (doc.getPisteLast() > 1 ? "s" : "") << '\n';
  ctx.exitCode = kUsage;
  return false;
}

inline bool écrireTexteCli(Context& ctx, const CVantoroTablature& doc,
                           const std::filesystem::path& f, const OptionsFormats& o) {
  if (!pisteExiste(ctx, doc, o.piste)) return false;
  const InterchangeResult r = exporterTxt(doc, o.piste > 0 ? o.piste : 1, f.string(), o.largeur);
  if (!r.ok()) refuserInterchange(ctx, r);
  return r.ok();
}

}  // namespace vt::cli

// convert IN OUT: reads by the input's extension (.vtb, .mid/.midi, .txt/.tab), writes by
// the output's (those, .wav and .pdf), with the options of the formats.
#include <memory>

#include "command.h"
#include "document_files.h"

namespace vt::cli {
namespace {

const CommandRegistration kConvert("convert", [](CLI::App& app, Context& ctx) {
  auto* sub = app.add_subcommand("convert", "convert a tablature from one file format to another");
  auto entrée = std::make_shared<std::string>();
  auto sortie = std::make_shared<std::string>();
  sub->add_option("IN", *entrée, "the file to read")->required();
  sub->add_option("OUT", *sortie, "the file to write; its extension gives the format")->required();

  auto o = std::make_shared<OptionsFormats>();
  sub->add_flag("--rmtf", o->rmtf, "MIDI export: add the tablature meta-events (RMTF)");
  sub->add_option("--midi-tracks", o->pistesMidi,
                  "MIDI import: the source of each target track, as the import dialog numbers "
                  "them: track chunks from 0 (format 1) or channels 1 to 16 (format 0)")
      ->delimiter(',')
      ->check(CLI::Range(0, 65535));
  sub->add_option("--transpose", o->transposition, "MIDI import: semitones added to every note")
      ->check(CLI::Range(-127, 127));
  sub->add_option_function<std::string>(
         "--tempos", [o](const std::string& v) { o->tempos = v == "on"; },
         "MIDI import: take the tempo changes (on by default)")
      ->check(CLI::IsMember({"on", "off"}));
  sub->add_option("--track", o->piste,
                  "ASCII export: the track written (1 by default); PDF: the one track printed "
                  "(every track by default, each from a new page)")
      ->check(CLI::Range(1, 255));
  sub->add_option("--paper", o->papier, "PDF: the sheet, a4 or letter (the system's by default)")
      ->check(CLI::IsMember({"a4", "letter"}));
  sub->add_option("--rhythm", o->rythme, "ASCII import: ticks of one text column (24 by default)")
      ->check(CLI::IsMember({192, 96, 48, 24, 12, 6, 3}));
  sub->add_option("--width", o->largeur, "ASCII export: the widest block in columns (66 by default)")
      ->check(CLI::Range(1, 100000));

  sub->callback([&ctx, entrée, sortie, o] {
    // Nothing is written unless the input was read in full.
    if (!sortieConnue(ctx, *sortie)) return;
    auto lu = lireDocument(ctx, *entrée, *o);
    if (!lu) return;
    écrireDocument(ctx, lu->doc, *sortie, *o);
  });
});

}  // namespace
}  // namespace vt::cli

// Reading and writing documents by file extension, shared by the subcommands.
// Each format joins the two tables below when its reader or writer exists
// (".wav" and ".pdf" have a writer only).
#pragma once

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <iostream>
#include <optional>
#include <string>

#include "app_path.h"
#include "audio_files.h"
#include "command.h"
#include "formats/catalogue.h"
#include "formats/string_table.h"
#include "formats/vtb.h"
#include "interchange_files.h"
#include "page_files.h"

namespace vt::cli {

inline constexpr int kTypeDeFichierInconnu = 6125;

inline std::string extension(const std::filesystem::path& p) {
  std::string e = p.extension().string();
  std::transform(e.begin(), e.end(), e.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return e;
}

// A usage error: the message on stderr and exit code 2.
inline void usage(Context& ctx, int stringId, const std::string& détail) {
  std::cerr << loadString(stringId, ctx.setLang) << " (" << détail << ")\n";
  ctx.exitCode = kUsage;
}

inline const CatalogueGuitares& catalogue() {
  static const CatalogueGuitares c =
      CatalogueGuitares::load(dossierProgramme() / kFichierCatalogue);
  return c;
}

// The current instrument of the tool: the catalogue's first, in the language asked.
inline tGuitare guitareCourante(const Context& ctx) {
  return catalogue().loadGuitare(1, ctx.setLang);
}

struct DocumentLu {
  CVantoroTablature doc;
  std::string format;  // "vtb", "midi" or "ascii"
  int version = 0;     // of a ".vtb" file; the format (0, 1) of a MIDI file
};

// Reads a document; on refusal prints every message of the reader in order,
// sets exit code 1 and gives nothing. Files of an unknown extension are tried
// as ".vtb", whose reader recognises its own files.
inline std::optional<DocumentLu> lireDocument(Context& ctx, const std::filesystem::path& fichier,
                                              const OptionsFormats& options = {}) {
  const std::string ext = extension(fichier);
  if (estMidi(ext)) {
    int format = 0;
    auto doc = lireMidiCli(ctx, fichier, options, guitareCourante(ctx), format);
    if (!doc) return std::nullopt;
    return DocumentLu{std::move(*doc), "midi", format};
  }
  if (estTexte(ext)) {
    auto doc = lireTexteCli(ctx, fichier, options, guitareCourante(ctx));
    if (!doc) return std::nullopt;
    return DocumentLu{std::move(*doc), "ascii", 0};
  }
  VtbContexte vc;
  vc.catalogue = &catalogue();
  vc.guitare = guitareCourante(ctx);
  vc.setLang = ctx.setLang;
  VtbLecture r = io_ouvrir_vtb(fichier, vc);
  if (!r.ok()) {
    for (std::size_t i = 0; i < r.messages.size(); ++i)
      refuse(ctx, r.messages[i], i + 1 == r.messages.size() ? r.détail : std::string());
    return std::nullopt;
  }
  return DocumentLu{std::move(*r.document), "vtb", r.version};
}

// True when the extension is one the writer knows; else a usage error.
inline bool sortieConnue(Context& ctx, const std::filesystem::path& fichier) {
  const std::string ext = extension(fichier);
  if (ext == ".vtb" || estMidi(ext) || estTexte(ext) || estSon(ext) || estPdf(ext)) return true;
  usage(ctx, kTypeDeFichierInconnu, fichier.string());
  return false;
}

// Writes a document in the format of the file's extension; false after a
// message (exit code 1 when the write failed, 2 for an unknown extension).
inline bool écrireDocument(Context& ctx, CVantoroTablature& doc,
                           const std::filesystem::path& fichier,
                           const OptionsFormats& options = {}) {
  if (!sortieConnue(ctx, fichier)) return false;
  const std::string ext = extension(fichier);
  if (estMidi(ext)) return écrireMidiCli(ctx, doc, fichier, options);
  if (estTexte(ext)) return écrireTexteCli(ctx, doc, fichier, options);
  if (estSon(ext)) return écrireWavCli(ctx, doc, fichier);
  if (estPdf(ext)) return écrirePdfCli(ctx, doc, fichier, options);
  const VtbSauvegarde s = io_enregistrer_vtb(doc, fichier);
  if (!s.ok()) refuse(ctx, s.message, s.détail);
  return s.ok();
}

}  // namespace vt::cli

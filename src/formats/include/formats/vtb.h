// The tablature file, ".vtb": version 8 is written, versions 4 to 8 are read
// and upgraded into the one current document.
//
// The byte functions do the work, so that tests and fuzzing need no files;
// the file functions are thin wrappers. A read builds a fresh document and
// hands it over only when the whole file made sense: the caller's document
// is never touched by a failed read.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "document/tablature.h"
#include "formats/catalogue.h"
#include "formats/file_io.h"

namespace vt {

inline constexpr int kVtbVersion = 8;

namespace msg {
inline constexpr int kPasUnFichierVtb = 6004;  // "This is not a VTB file!"
inline constexpr int kTailleFichier = 6005;    // "Bad file size!": short, cut or self-contradicting
inline constexpr int kVtbTropAncien = 6006;    // version below 4
inline constexpr int kVtbTropRécent = 6014;    // version above 8
inline constexpr int kTexteTropLong = 6123;    // a text past 255 bytes cannot be saved
inline constexpr int kDocumentIncohérent = 6124;  // the document breaks its own rules
}  // namespace msg

// What a read needs from the program around it.
struct VtbContexte {
  const CatalogueGuitares* catalogue = nullptr;  // for the instrument matching; none: no match
  tGuitare guitare;                              // the current instrument
  byt bytPatch = kPatchParDéfaut;                // the patch new tracks get (a setting)
  int setLang = 0;                               // language of instrument names
};

struct VtbLecture {
  // String ids of the messages to show, in order; empty on success.
  std::vector<int> messages;
  // Where a damaged body went wrong, for diagnostics; not a user message.
  std::string détail;
  // The loaded document, present on success only.
  std::optional<CVantoroTablature> document;
  // The version byte of the file, 0 when the head did not reach it.
  int version = 0;
  // The current instrument after the load: the catalogue's instrument that
  // matched the last track whose tuning it knows, else the one given.
  tGuitare guitare;
  // The index of that instrument, for the setting "setGuitare"; 0 when no
  // track matched and the setting stays as it is.
  int setGuitare = 0;

  bool ok() const { return document.has_value(); }
};

struct VtbEcriture {
  std::vector<std::uint8_t> octets;  // the file, when message is 0
  int message = 0;                   // kTexteTropLong or kDocumentIncohérent
  std::string détail;                // which text, or which rule
  bool ok() const { return message == 0; }
};

// The version 8 file of the document. Refused, with no bytes, when a text is
// longer than the 255 bytes its length byte can say, or when the document
// breaks its invariants (a file the reader would then refuse).
VtbEcriture io_enregistrer_vtb(const CVantoroTablature& doc);

// Reads a file of version 4 to 8.
VtbLecture io_ouvrir_vtb(std::span<const std::uint8_t> octets, const VtbContexte& ctx);

// Saves to a file through a temporary file renamed into place, and clears
// `modifi` on success. Messages: kTexteTropLong, kDocumentIncohérent, or
// msg::kEcritureImpossible with the system's reason in `détail`.
struct VtbSauvegarde {
  int message = 0;
  std::string détail;
  bool ok() const { return message == 0; }
};
VtbSauvegarde io_enregistrer_vtb(CVantoroTablature& doc, const std::filesystem::path& fichier);

// Reads a whole file, then as above; a missing or unreadable file gives
// msg::kFichierIntrouvable or msg::kLectureImpossible.
VtbLecture io_ouvrir_vtb(const std::filesystem::path& fichier, const VtbContexte& ctx);

}  // namespace vt

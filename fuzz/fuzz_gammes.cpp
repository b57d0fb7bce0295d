// The scale file reader on any bytes, and everything the scale window and the
// harmoniser then do with its records. Beyond "no crash, no hang": whole
// records only, names without control bytes, the two octaves folded onto
// each other, notes played within the octave from the key.
#include <cstdint>
#include <cstdlib>
#include <span>

#include "formats/string_table.h"
#include "music/gamme.h"
#include "music/gammes.h"
#include "music/harmony.h"

namespace {

void vérifie(bool condition) {
  if (!condition) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vt;
  const FichierGammes f = FichierGammes::depuisOctets(std::span<const std::uint8_t>(data, size));
  vérifie(static_cast<std::size_t>(f.count()) == size / kTailleGamme);
  vérifie(f.octetsEnTrop() == size % kTailleGamme);

  tGuitare guitare;  // six strings, standard tuning
  for (const tGamme& g : f.gammes()) {
    for (const int lang : {kLangFrançais, kLangAnglais})
      for (const char c : nomGamme(g, lang))
        vérifie(static_cast<unsigned char>(c) >= 0x20 && c != 0x7F);
    (void)typeAccordStandard(g.demitons);
    for (const int mode : {kModeDansLaTonalitéDuParent, kModeSurSaFondamentale}) {
      const Demitons d = demitonsAffichés(g, mode);
      const int tonalité = 1 + static_cast<int>(d[0] % 12);
      const tNotesGamme n = chargeNotesGamme(d, tonalité);
      for (int p = 1; p <= 12; ++p)
        vérifie(n.notes[static_cast<std::size_t>(p)] == n.notes[static_cast<std::size_t>(p + 12)]);
      for (const int note : listeLecture(n, tonalité))
        vérifie(note >= 44 + tonalité && note <= 56 + tonalité);
      for (int setGAMConst = 0; setGAMConst <= 3; ++setGAMConst)
        (void)texteConstruction(n, setGAMConst, kLangAnglais);
      for (const tCaseGamme& c : casesGamme(n, guitare))
        vérifie(c.c >= 0 && c.c <= 24 && c.corde >= 1 && c.corde <= 7);
    }
  }

  // The harmoniser, on pitch classes taken from the first two bytes.
  TonsDessinés tons{};
  for (int k = 0; k < 12 && size >= 2; ++k)
    tons[static_cast<std::size_t>(k + 1)] = ((data[k / 8] >> (k % 8)) & 1) != 0;
  for (const int mode : {kIdentification, kHarmonisation}) {
    for (const tHarmonie& h : computeHarmony(f, tons, mode, kModeSurSaFondamentale, kLangAnglais)) {
      vérifie(h.gamme >= 1 && h.gamme <= f.count());
      vérifie(h.fondamentale >= 1 && h.fondamentale <= 12 &&
              tons[static_cast<std::size_t>(h.fondamentale)]);
      (void)ligneHarmonie(f, h, kLangFrançais);
    }
  }
  return 0;
}

// bench_make_limit OUT.vtb [BARS]: writes the piece at the format's limits
// (bench_limite.h), 32,767 bars unless told fewer, for the timed command-line
// runs of bench/limits.sh.
#include <cstdlib>
#include <iostream>
#include <string>

#include "bench_limite.h"
#include "formats/vtb.h"

int main(int argc, char** argv) {
  if (argc < 2 || argc > 3 || argv[1][0] == '-') {
    std::cerr << "usage: bench_make_limit OUT.vtb [BARS]\n";
    return 2;
  }
  const int mesures = argc == 3 ? std::atoi(argv[2]) : vt::kMaxMesures;
  if (mesures < 1 || mesures > vt::kMaxMesures) {
    std::cerr << "BARS: 1 to " << vt::kMaxMesures << '\n';
    return 2;
  }
  vt::CVantoroTablature doc = vt::banc::morceauLimite(mesures);
  const vt::VtbSauvegarde s = vt::io_enregistrer_vtb(doc, argv[1]);
  if (!s.ok()) {
    std::cerr << argv[1] << ": " << s.détail << '\n';
    return 1;
  }
  return 0;
}

#include "sound/peripheriques.h"

#include "sound/ports_alsa.h"

namespace vt {

std::vector<std::string> nomsSortiesMidi(int setLang) {
  std::vector<std::string> noms{loadString(son::kSynthétiseurIntégré, setLang)};
  for (std::string& p : portsSortieAlsa())
    noms.push_back(std::move(p));
  return noms;
}

std::vector<std::string> nomsEntréesMidi() {
  return portsEntréeAlsa();
}

OuvertureSortie ouvreSortieMidi(int device, const OptionsSynthé& synthé) {
  OuvertureSortie o;
  if (device > 0) {
    auto port = std::make_shared<PortAlsaSortie>(unsigned(device - 1));
    if (port->ouvert()) {
      o.sortie = std::move(port);
      return o;
    }
    o.messages.push_back({son::kSortieMidiImpossible.id, port->erreur()});
  }
  auto intégré = std::make_shared<SynthéIntégré>(synthé);
  o.messages.insert(o.messages.end(), intégré->messages().begin(), intégré->messages().end());
  o.sortie = std::move(intégré);
  return o;
}

OuvertureEntrée ouvreEntréeMidi(int device) {
  OuvertureEntrée o;
  if (device < 0 || portsEntréeAlsa().empty()) return o;
  auto port = std::make_unique<PortAlsaEntrée>(unsigned(device));
  if (port->ouvert()) {
    o.entrée = std::move(port);
  } else {
    o.messages.push_back({son::kEntréeMidiImpossible.id, port->erreur()});
  }
  return o;
}

}  // namespace vt

#include "sound/midi_handles.h"

#include <cstdint>
#include <map>
#include <mutex>

namespace vt {

namespace {

struct Table {
  std::mutex verrou;
  std::map<std::int32_t, std::shared_ptr<MidiOut>> sorties;
  std::int32_t suivant = 1;
};

Table& table() {
  static Table t;
  return t;
}

}  // namespace

std::int32_t midiHandleOuvrir(std::shared_ptr<MidiOut> out) {
  if (!out) return 0;
  Table& t = table();
  std::lock_guard lock(t.verrou);
  std::int32_t h = t.suivant;
  // Handles are never reused while open; after 2^31 openings they wrap past 0.
  while (h == 0 || t.sorties.count(h)) h = h == INT32_MAX ? 1 : h + 1;
  t.suivant = h == INT32_MAX ? 1 : h + 1;
  t.sorties.emplace(h, std::move(out));
  return h;
}

void midiHandleFermer(std::int32_t handle) {
  Table& t = table();
  std::lock_guard lock(t.verrou);
  t.sorties.erase(handle);
}

std::shared_ptr<MidiOut> midiHandleSortie(std::int32_t handle) {
  if (handle == 0) return nullptr;
  Table& t = table();
  std::lock_guard lock(t.verrou);
  auto it = t.sorties.find(handle);
  return it == t.sorties.end() ? nullptr : it->second;
}

}  // namespace vt

#include "sound/sortie_journal.h"

#include <algorithm>
#include <cstdio>

namespace vt {

void SortieJournal::shortMsg(std::uint32_t message) {
  // The time is read under the lock, so that the list is in the order of its
  // times even when two threads send at once.
  std::lock_guard lock(m_verrou);
  const auto maintenant = Horloge::now();
  if (!m_début) m_début = maintenant;
  const std::chrono::duration<double, std::milli> écart = maintenant - *m_début;
  m_messages.push_back({écart.count(), message});
  if (m_écouteur) m_écouteur(m_messages.back());
}

void SortieJournal::reset() {
  std::lock_guard lock(m_verrou);
  ++m_resets;
}

void SortieJournal::setDébut(Horloge::time_point début) {
  std::lock_guard lock(m_verrou);
  m_début = début;
}

void SortieJournal::setEcouteur(std::function<void(const MessageDate&)> écouteur) {
  std::lock_guard lock(m_verrou);
  m_écouteur = std::move(écouteur);
}

MessagesDates SortieJournal::messages() const {
  std::lock_guard lock(m_verrou);
  return m_messages;
}

int SortieJournal::resets() const {
  std::lock_guard lock(m_verrou);
  return m_resets;
}

void SortieJournal::efface() {
  std::lock_guard lock(m_verrou);
  m_messages.clear();
  m_resets = 0;
  m_début.reset();
}

std::string ligneJournal(const MessageDate& m) {
  // A time that rounds to zero from below prints as 0.000, not -0.000.
  const double ms = (m.ms > -0.0005 && m.ms < 0.0005) ? 0.0 : m.ms;
  char texte[400];  // the widest double in %.3f takes 313 characters
  const int n = std::snprintf(texte, sizeof texte, "%.3f", ms);
  std::string ligne(texte, std::size_t(std::clamp(n, 0, int(sizeof texte) - 1)));
  const std::uint8_t octets[3] = {midiStatus(m.message), midiData1(m.message),
                                  midiData2(m.message)};
  for (int i = 0; i < midiLongueur(m.message); ++i) {
    std::snprintf(texte, sizeof texte, " %02X", unsigned(octets[i]));
    ligne += texte;
  }
  return ligne;
}

}  // namespace vt

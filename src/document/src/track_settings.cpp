// Instrument and MIDI settings of a track: plain reads and writes.
#include "document/tablature.h"

namespace vt {

#define VT_TRACK_FIELD(Get, Set, field, Type, Ret)            \
  Ret CVantoroTablature::Get(int p) const {                   \
    return m_tabPistes.has(p) ? m_tabPistes[p].field : Ret{}; \
  }                                                           \
  void CVantoroTablature::Set(int p, Type v) {                \
    if (m_tabPistes.has(p)) m_tabPistes[p].field = v;         \
  }

VT_TRACK_FIELD(getStaffType, setStaffType, bytStaffType, byt, int)
VT_TRACK_FIELD(getPortéeClef, setPortéeClef, bytClef, byt, int)
VT_TRACK_FIELD(getMIDIReverb, setMIDIReverb, bytReverb, byt, int)
VT_TRACK_FIELD(getMIDIPan, setMIDIPan, bytPan, byt, int)
VT_TRACK_FIELD(getMIDIChorus, setMIDIChorus, bytChorus, byt, int)
VT_TRACK_FIELD(getMIDIPhaser, setMIDIPhaser, bytPhaser, byt, int)
VT_TRACK_FIELD(getMIDITremolo, setMIDITremolo, bytTremolo, byt, int)
VT_TRACK_FIELD(getMIDIBalance, setMIDIBalance, bytBalance, byt, int)
VT_TRACK_FIELD(getMIDIPatch, setMIDIPatch, bytPatch, byt, int)
VT_TRACK_FIELD(getMIDIBank, setMIDIBank, lngBank, lng, lng)
VT_TRACK_FIELD(getGuitareNbrCases, setGuitareNbrCases, bytNbrCases, byt, int)
VT_TRACK_FIELD(getGuitareCapodastre, setGuitareCapodastre, bytCapodastre, byt, int)
VT_TRACK_FIELD(getPistePlaySolo, setPistePlaySolo, boolPlaySolo, vbool, vbool)
VT_TRACK_FIELD(getPistePlayMute, setPistePlayMute, boolPlayMute, vbool, vbool)

#undef VT_TRACK_FIELD

std::string CVantoroTablature::getPisteNom(int p) const {
  return m_tabPistes.has(p) ? m_tabPistes[p].strNom : std::string();
}

bool CVantoroTablature::setPisteNom(int p, const std::string& v) {
  if (!m_tabPistes.has(p) || v.size() > kMaxTexte) return false;
  m_tabPistes[p].strNom = v;
  return true;
}

std::string CVantoroTablature::getGuitareNom(int p) const {
  return m_tabPistes.has(p) ? m_tabPistes[p].strGuitareNom : std::string();
}

bool CVantoroTablature::setGuitareNom(int p, const std::string& v) {
  if (!m_tabPistes.has(p) || v.size() > kMaxTexte) return false;
  m_tabPistes[p].strGuitareNom = v;
  return true;
}

int CVantoroTablature::getGuitareNbrCordes(int p) const {
  return m_tabPistes.has(p) ? m_tabPistes[p].bytNbrCordes : 0;
}

bool CVantoroTablature::setGuitareNbrCordes(int p, int v) {
  if (!m_tabPistes.has(p) || v < 1 || v > kMaxCordes) return false;
  m_tabPistes[p].bytNbrCordes = static_cast<byt>(v);
  return true;
}

int CVantoroTablature::getGuitareCorde(int p, int c) const {
  return (m_tabPistes.has(p) && c >= 1 && c <= kMaxCordes) ? m_tabPistes[p].bytCordes[c] : 0;
}

void CVantoroTablature::setGuitareCorde(int p, int c, byt v) {
  if (m_tabPistes.has(p) && c >= 1 && c <= kMaxCordes) m_tabPistes[p].bytCordes[c] = v;
}

}  // namespace vt

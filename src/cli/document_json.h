// The whole document as JSON, field names as in the records. Written as a
// stream, one bar per line, so that a file of any size is dumped in little
// memory; texts are converted to UTF-8.
#pragma once

#include <nlohmann/json.hpp>
#include <ostream>
#include <string>

#include "document/tablature.h"
#include "document/cp1252.h"

namespace vt::cli {

using Json = nlohmann::ordered_json;

inline Json texteJson(const std::string& cp1252) {
  return Json(cp1252ToUtf8(cp1252));
}

inline Json mesureJson(const tMesure& h) {
  Json tempos = Json::array();
  for (const tTempo& t : h.tabTempos)
    tempos.push_back({{"intX", t.intX}, {"bytTempo", t.bytTempo}});
  return {{"bytSignatureUp", h.bytSignatureUp},
          {"bytSignatureDn", h.bytSignatureDn},
          {"bytTonalité", h.bytTonalité},
          {"bytLoopGaucheType", h.bytLoopGaucheType},
          {"bytLoopGaucheData", h.bytLoopGaucheData},
          {"bytLoopDroiteType", h.bytLoopDroiteType},
          {"bytLoopDroiteData", h.bytLoopDroiteData},
          {"tempos", std::move(tempos)}};
}

inline Json textesJson(const OneBased<tTexte>& textes) {
  Json a = Json::array();
  for (const tTexte& t : textes)
    a.push_back({{"intX", t.intX}, {"strContenu", texteJson(t.strContenu)}});
  return a;
}

inline Json pisteMesureJson(const tPisteMesure& pm) {
  Json accords = Json::array();
  for (const tAccord& a : pm.tabAccords) {
    Json frettes = Json::array();
    for (byt f : a.tabCordes)
      frettes.push_back(f);
    accords.push_back(
        {{"intX", a.intX}, {"strNom", texteJson(a.strNom)}, {"tabCordes", std::move(frettes)}});
  }
  Json cordes = Json::array();
  for (const auto& notes : pm.tabCordes) {
    Json l = Json::array();
    for (const tNote& n : notes)
      l.push_back({{"bytCase", n.bytCase},
                   {"bytDurée", n.bytDurée},
                   {"intX", n.intX},
                   {"bytEffet", n.bytEffet},
                   {"bytAttaque", n.bytAttaque},
                   {"bytVolume", n.bytVolume}});
    cordes.push_back(std::move(l));
  }
  return {{"accords", std::move(accords)},
          {"textesUp", textesJson(pm.tabTextesUp)},
          {"textesDn", textesJson(pm.tabTextesDn)},
          {"cordes", std::move(cordes)}};
}

// The track's own fields, without its bars.
inline Json pisteJson(const tPiste& p) {
  Json cordes = Json::array();
  for (int c = 1; c <= p.bytNbrCordes; ++c)
    cordes.push_back(p.bytCordes[static_cast<std::size_t>(c)]);
  return {{"strNom", texteJson(p.strNom)},
          {"strGuitareNom", texteJson(p.strGuitareNom)},
          {"bytNbrCordes", p.bytNbrCordes},
          {"bytCordes", std::move(cordes)},
          {"bytCapodastre", p.bytCapodastre},
          {"bytNbrCases", p.bytNbrCases},
          {"lngBank", p.lngBank},
          {"bytPatch", p.bytPatch},
          {"bytPan", p.bytPan},
          {"bytReverb", p.bytReverb},
          {"bytTremolo", p.bytTremolo},
          {"bytChorus", p.bytChorus},
          {"bytPhaser", p.bytPhaser},
          {"bytBalance", p.bytBalance},
          {"bytClef", p.bytClef},
          {"bytStaffType", p.bytStaffType},
          {"boolPlaySolo", p.boolPlaySolo != kFaux},
          {"boolPlayMute", p.boolPlayMute != kFaux}};
}

// Prints the members of an object one per line, without its braces.
inline void champs(std::ostream& o, const Json& objet, const char* retrait) {
  bool premier = true;
  for (const auto& [clé, valeur] : objet.items()) {
    o << (premier ? "" : ",\n") << retrait << Json(clé).dump() << ": " << valeur.dump();
    premier = false;
  }
}

inline void écrireDocumentJson(std::ostream& o, const CVantoroTablature& doc) {
  const Json tête = {{"titre", texteJson(doc.titre)},
                     {"Auteur", texteJson(doc.Auteur)},
                     {"Copy", texteJson(doc.Copy)},
                     {"SousTitre", texteJson(doc.SousTitre)},
                     {"Comments", texteJson(doc.Comments)},
                     {"tempo", doc.tempo},
                     {"TripleFeel", doc.TripleFeel() != kFaux}};
  o << "{\n";
  champs(o, tête, "  ");
  o << ",\n  \"mesures\": [";
  for (int m = 1; m <= doc.getMesureLast(); ++m)
    o << (m > 1 ? ",\n    " : "\n    ") << mesureJson(doc.mesure(m)).dump();
  o << "\n  ],\n  \"pistes\": [";
  for (int p = 1; p <= doc.getPisteLast(); ++p) {
    const tPiste& piste = doc.piste(p);
    o << (p > 1 ? ",\n    {\n" : "\n    {\n");
    champs(o, pisteJson(piste), "      ");
    o << ",\n      \"mesures\": [";
    for (int m = 1; m <= piste.tabMesures.last(); ++m)
      o << (m > 1 ? ",\n        " : "\n        ") << pisteMesureJson(piste.tabMesures[m]).dump();
    o << "\n      ]\n    }";
  }
  const tMarqueurs& mq = doc.marqueurs();
  const Json markers = {{"startMesure", mq.startMesure},
                        {"startX", mq.startX},
                        {"stopMesure", mq.stopMesure},
                        {"stopX", mq.stopX}};
  o << "\n  ],\n  \"markers\": " << markers.dump() << "\n}\n";
}

}  // namespace vt::cli

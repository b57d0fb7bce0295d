// The layout pass of the pages: the head of page 1, line breaking with the
// stretch, the page breaks. getNumberOfPages and drawOnPage both start here,
// so the preview's page bar and the printed pages always agree.
#include <cmath>

#include "render/page_renderer.h"
#include "render/strip_metrics.h"
#include "texte.h"

namespace vt {

namespace {
// The lines of a head text: the comments may hold line breaks of either kind,
// or the two characters backslash and n as the strip's texts do.
std::vector<std::string> lignes(const std::string& texte) {
  std::vector<std::string> out;
  std::string courante;
  const auto coupe = [&] {
    for (std::string& morceau : lignesDeTexte(courante))
      out.push_back(std::move(morceau));
    courante.clear();
  };
  for (std::size_t i = 0; i < texte.size(); ++i) {
    const char ch = texte[i];
    if (ch == '\r' || ch == '\n') {
      if (ch == '\r' && i + 1 < texte.size() && texte[i + 1] == '\n') ++i;
      coupe();
    } else {
      courante += ch;
    }
  }
  coupe();
  return out;
}

std::string remplace(std::string texte, const std::string& quoi, const std::string& par) {
  for (std::size_t i = texte.find(quoi); i != std::string::npos;
       i = texte.find(quoi, i + par.size()))
    texte.replace(i, quoi.size(), par);
  return texte;
}

// The head element that stands for the tuning line, under the track's name.
constexpr int kLigneAccordage = 8;
}  // namespace

double PlaceMesure::xTick(int X) const {
  const int s = échelle > 0 ? échelle : 192;
  const lng colonnes = static_cast<lng>(X) * interNote / s;
  return xNotes + std::nearbyint(étirement * static_cast<double>(colonnes + interMesure));
}

std::vector<int> accordageStandard(int nbCordes) {
  switch (nbCordes) {
    case 4:
      return {43, 38, 33, 28};
    case 5:
      return {43, 38, 33, 28, 23};
    case 6:
      return {64, 59, 55, 50, 45, 40};
    case 7:
      return {64, 59, 55, 50, 45, 40, 35};
    default:
      return {};
  }
}

CPageRenderer::CPageRenderer(const CVantoroTablature& doc, const TabSettings& settings)
    : m_doc(doc), m_s(settings), m_prn(derivePrintMetrics(settings)) {}

lng CPageRenderer::largeurMesure(int p, int m, int première) const {
  const int échelle = m_doc.getOnPageViewMode(p, m);
  return getOnPageLargeurTonalité(m_doc, m_prn, m, première) +
         getOnPageLargeurSignature(m_doc, m_prn, m, première) + m_prn.PRN_VIEW_INTER_MESURE +
         static_cast<lng>(m_doc.getMesureLargeur(m)) * m_prn.PRN_VIEW_INTER_NOTE /
             (échelle > 0 ? échelle : 192);
}

std::string CPageRenderer::ligneAccordage(int p) const {
  if (!m_doc.hasPiste(p) || m_doc.getStaffType(p) == kStaffBatterie) return {};
  const int nb = m_doc.getGuitareNbrCordes(p);
  std::vector<int> cordes;
  for (int c = 1; c <= nb; ++c)
    cordes.push_back(m_doc.getGuitareCorde(p, c));
  const int capo = m_doc.getGuitareCapodastre(p);
  const TextesPage& t = m_s.textesPage;
  std::string ligne;
  if (cordes != accordageStandard(nb)) {
    ligne = t.accordage;
    // From the lowest string to the highest, as a guitarist reads a tuning.
    for (int c = nb; c >= 1; --c)
      ligne += ' ' + t.notes[static_cast<std::size_t>((m_doc.getGuitareCorde(p, c) + 3) % 12)];
  }
  if (capo > 0) {
    if (!ligne.empty()) ligne += "   ";
    ligne += remplace(t.capodastre, "%1", std::to_string(capo));
  }
  return ligne;
}

std::vector<std::pair<int, std::string>> CPageRenderer::textesEntête(int p) const {
  std::vector<std::pair<int, std::string>> out;
  const auto imprimé = [&](int i) { return m_s.cfgPrint[static_cast<std::size_t>(i)] == 1; };
  for (const int i : {kEntêteTitre, kEntêteSousTitre, kEntêteAuteur, kEntêteCopyright,
                      kEntêteCommentaires, kEntêteNomPiste, kEntêteTempo}) {
    if (!imprimé(i)) continue;
    std::string texte;
    switch (i) {
      case kEntêteTitre:
        texte = m_doc.titre;
        break;
      case kEntêteSousTitre:
        texte = m_doc.SousTitre;
        break;
      case kEntêteAuteur:
        texte = m_doc.Auteur;
        break;
      case kEntêteCopyright:
        texte = m_doc.Copy;
        break;
      case kEntêteCommentaires:
        texte = m_doc.Comments;
        break;
      case kEntêteNomPiste:
        texte = m_doc.getPisteNom(p);
        break;
      default:
        texte = m_s.textesPage.tempo + ' ' + std::to_string(m_doc.tempo);
        break;
    }
    const std::string utf8 = i == kEntêteTempo ? texte : utf8DepuisCp1252(texte);
    if (!utf8.empty()) out.emplace_back(i, utf8);
    if (i == kEntêteNomPiste) {
      const std::string accordage = ligneAccordage(p);
      if (!accordage.empty()) out.emplace_back(kLigneAccordage, accordage);
    }
  }
  return out;
}

lng CPageRenderer::drawOnPageText(lng y, int index, const std::string& texte, Surface& device,
                                  bool dessine, double zoom) {
  if (texte.empty() || index < 0 || index > kLigneAccordage) return y;
  // The tuning line takes the track name's style, smaller and plain.
  const int i = index == kLigneAccordage ? kEntêteNomPiste : index;
  const StyleEntête& st = m_s.cfgFont[static_cast<std::size_t>(i)];
  FontSpec f{st.nom, st.taille * zoom, st.gras, st.italique, st.souligné, st.barrée};
  if (index == kLigneAccordage) {
    f.taille = std::max(8.0, st.taille * 0.5) * zoom;
    f.gras = false;
    f.souligné = false;
  }
  device.setFont(f);
  device.setFontTransparent(true);
  device.setForeColor(m_s.cfgPrintNB == 1 ? kNoir : st.couleur);
  const int alignement = m_s.cfgPrintAlign[static_cast<std::size_t>(i)];
  const lng marge = m_prn.PRN_VIEW_MARGIN_LEFT;
  for (const std::string& ligne : lignes(texte)) {
    const int h = device.TextHeight(ligne.empty() ? "A" : ligne);
    if (dessine && !ligne.empty()) {
      const int w = device.TextWidth(ligne);
      double x = static_cast<double>(marge);
      if (alignement == 1) x = (device.ScaleWidth() - w) / 2.0;
      if (alignement == 2) x = static_cast<double>(device.ScaleWidth() - marge - w);
      device.setCurrentX(x);
      device.setCurrentY(static_cast<double>(y));
      device.Print(ligne);
    }
    y += h;
  }
  return y;
}

MiseEnPage CPageRenderer::miseEnPage(Surface& device, double zoom, int p) {
  m_prn = derivePrintMetrics(m_s);
  m_zoom = zoom;
  MiseEnPage mise;
  mise.piste = p;
  mise.zoom = zoom;
  mise.prn = m_prn;
  if (!m_doc.hasPiste(p)) return mise;

  const lng IS = m_prn.PRN_VIEW_INTER_STRINGS;
  mise.salleHaut = m_s.cfgPrintAccords ? m_prn.PRN_VIEW_MARGIN_TOP : m_prn.PRN_VIEW_MARGIN_TOP / 2;
  mise.hauteurSystème =
      mise.salleHaut + m_prn.PRN_VIEW_MARGIN_TOP_TAB + m_doc.getGuitareNbrCordes(p) * IS;
  // The stems under the tablature end one string step below the system, and
  // a triplet's 3 one more: the last system of a page keeps them on the page.
  mise.débordBas = m_s.cfgPrintTabRythme ? 2 * IS : 0;
  m_salleHaut = mise.salleHaut;

  lng y = 0;
  for (const auto& [i, texte] : textesEntête(p))
    y = drawOnPageText(y, i, texte, device, false, zoom);
  mise.hauteurEntête = y;

  const lng largeurPage = device.ScaleWidth();
  const lng hauteurPage = device.ScaleHeight();
  const lng marge = m_prn.PRN_VIEW_MARGIN_LEFT;
  mise.pages.emplace_back();
  const int dernière = m_doc.getMesureLast();
  int m = 1;
  while (m <= dernière) {
    // One system: bars while they fit; a bar wider than the page stands alone.
    SystèmePage s;
    s.première = m;
    m_premièreMesure = m;
    lng w = m_prn.PRN_VIEW_INTER_MESURE / 2 + m_prn.PRN_VIEW_INTER_NOTE;
    int nombre = 0;
    while (m <= dernière) {
      const lng W = largeurMesure(p, m, s.première);
      if (marge + w + W > largeurPage && nombre > 0) break;
      w += W;
      ++m;
      ++nombre;
    }
    s.dernière = m - 1;
    s.largeur = w;
    // A line past half the page is stretched to its width; a short one, such
    // as the last, keeps its natural spacing.
    const lng utile = largeurPage - 2 * marge;
    s.étirement = w > largeurPage / 2 && utile > 0 && w > 0
                      ? static_cast<double>(utile) / static_cast<double>(w)
                      : 1.0;
    m_étirement = s.étirement;
    if (!mise.pages.back().systèmes.empty() &&
        y + mise.hauteurSystème + mise.débordBas > hauteurPage) {
      mise.pages.emplace_back();
      y = 0;
    }
    s.y = y;
    mise.pages.back().systèmes.push_back(s);
    y += mise.hauteurSystème;
  }
  return mise;
}

i16 CPageRenderer::getNumberOfPages(Surface& device, double zoom, int p) {
  return wrap16(miseEnPage(device, zoom, p).nombrePages());
}

void CPageRenderer::drawOnPage(Surface& device, double zoom, int page, int p, bool dessine) {
  const MiseEnPage mise = miseEnPage(device, zoom, p);
  if (dessine) drawOnPage(device, mise, page);
}

void CPageRenderer::drawOnPage(Surface& device, const MiseEnPage& mise, int page) {
  if (page < 1 || page > mise.nombrePages()) return;
  m_dev = &device;
  m_zoom = mise.zoom;
  m_prn = mise.prn;
  m_salleHaut = mise.salleHaut;
  device.setDrawMode(DrawMode::CopyPen);
  device.setDrawStyle(DrawStyle::Solid);
  device.setFillStyle(FillStyle::Transparent);
  device.setBackColor(kBlanc);
  if (page == 1) {
    lng y = 0;
    for (const auto& [i, texte] : textesEntête(mise.piste))
      y = drawOnPageText(y, i, texte, device, true, mise.zoom);
  } else if (m_s.cfgPrint[kEntêteNuméroPage] == 1) {
    drawOnPageText(0, kEntêteNuméroPage, remplace(m_s.cfgPrintNumpage, "%c", std::to_string(page)),
                   device, true, mise.zoom);
  }
  const auto& systèmes = mise.pages[static_cast<std::size_t>(page - 1)].systèmes;
  for (const SystèmePage& s : systèmes) {
    m_premièreMesure = s.première;
    m_étirement = s.étirement;
    dessineSystème(mise.piste, s);
  }
  m_dev = nullptr;
}

}  // namespace vt

// Pages on the command line: `convert x.vtb out.pdf` lays every track (or the
// one of --track) out on pages as the print preview does, with the default
// page settings, each track from a new page; `render --page` draws one page.
#pragma once

#include <filesystem>
#include <iostream>
#include <string>

#include "command.h"
#include "formats/string_table.h"
#include "interchange_files.h"
#include "render/tab_settings.h"
#include "render_qt/page_documents.h"
#include "render_qt/strip_image.h"

namespace vt::cli {

inline bool estPdf(const std::string& ext) {
  return ext == ".pdf";
}

// The default page settings, with the page's words in the language asked.
inline TabSettings réglagesPage(const Context& ctx) {
  TabSettings s;
  s.textesPage.tempo = loadString(1275, ctx.setLang);
  s.textesPage.accordage = loadString(1601, ctx.setLang);
  s.textesPage.capodastre = loadString(1276, ctx.setLang);
  for (int k = 0; k < 12; ++k)
    s.textesPage.notes[static_cast<std::size_t>(k)] = loadString(2806 + k, ctx.setLang);
  return s;
}

// The sheet: "a4", "letter", or the system's when empty.
inline QPageLayout pageDemandée(const std::string& papier) {
  QPageLayout page = pageParDéfaut();
  if (papier == "a4") page.setPageSize(QPageSize(QPageSize::A4));
  if (papier == "letter") page.setPageSize(QPageSize(QPageSize::Letter));
  return page;
}

inline bool écrirePdfCli(Context& ctx, const CVantoroTablature& doc, const std::filesystem::path& f,
                         const OptionsFormats& o) {
  if (!pisteExiste(ctx, doc, o.piste)) return false;
  ApplicationHorsÉcran application;
  std::vector<int> pistes;
  if (o.piste > 0) {
    pistes.push_back(o.piste);
  } else {
    for (int p = 1; p <= doc.getPisteLast(); ++p)
      pistes.push_back(p);
  }
  const RésultatPdf r =
      écritPdf(doc, réglagesPage(ctx), pistes, f.string(), pageDemandée(o.papier));
  if (!r.ok) refuse(ctx, 6122, f.string() + ": " + r.erreur);
  return r.ok;
}

}  // namespace vt::cli

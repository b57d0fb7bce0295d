// render FILE.vtb OUT.png: the editor's strip as the window would show it with
// the default settings, drawn offscreen; with --page N, that printed page of a
// track as the print preview shows it.
#include <cstdio>
#include <iostream>
#include <memory>

#include "command.h"
#include "document_files.h"
#include "page_files.h"
#include "render/tab_settings.h"
#include "render_qt/strip_image.h"

namespace vt::cli {
namespace {

struct RenderArgs {
  std::string entrée;
  std::string sortie;
  StripImageOptions options;
  std::string curseur;  // BAR:X:STRING
  bool sansPortée = false;
  int page = 0;  // a printed page instead of the strip
  int dpi = 150;
  std::string papier;
};

// A printed page into a PNG; usage errors for a page the track does not have.
void rendPage(Context& ctx, const CVantoroTablature& doc, const RenderArgs& a) {
  if (!doc.hasPiste(a.options.piste)) {
    std::cerr << "no track " << a.options.piste << '\n';
    ctx.exitCode = kUsage;
    return;
  }
  const TabSettings réglages = réglagesPage(ctx);
  const QPageLayout page = pageDemandée(a.papier);
  const int nombre = miseEnPagePiste(doc, réglages, a.options.piste, page).nombrePages();
  if (a.page > nombre) {
    std::cerr << "no page " << a.page << ": track " << a.options.piste << " has " << nombre
              << " page" << (nombre > 1 ? "s" : "") << '\n';
    ctx.exitCode = kUsage;
    return;
  }
  const QImage image = imagePage(doc, réglages, a.options.piste, a.page, page, a.dpi);
  if (!enregistrePng(image, a.sortie)) refuse(ctx, 6122, a.sortie);
}

// "BAR:X:STRING" into the cursor; false when it does not read so.
bool lireCurseur(const std::string& texte, StripImageOptions::Curseur& c) {
  char fin = 0;
  return std::sscanf(texte.c_str(), "%d:%d:%d%c", &c.mesure, &c.x, &c.corde, &fin) == 3;
}

const CommandRegistration kRender("render", [](CLI::App& app, Context& ctx) {
  auto* sub = app.add_subcommand("render", "draw a track's strip into a PNG image");
  auto a = std::make_shared<RenderArgs>();
  sub->add_option("FILE", a->entrée, "the tablature to draw")->required();
  sub->add_option("OUT", a->sortie, "the PNG to write")->required();
  sub->add_option("--track", a->options.piste, "track number, from 1");
  sub->add_option("--scroll", a->options.premièreMesure, "first bar shown");
  sub->add_option("--width", a->options.largeur, "width in pixels")->check(CLI::Range(16, 20000));
  sub->add_option("--height", a->options.hauteur, "height in pixels")->check(CLI::Range(16, 20000));
  sub->add_option("--view", a->options.viewMode,
                  "1 quarter, 2 eighth, 3 sixteenth, 4 thirty-second per column")
      ->check(CLI::Range(1, 4));
  sub->add_flag("--triplet", a->options.triolet, "triplet columns");
  sub->add_flag("--no-staff", a->sansPortée, "draw the tablature without the staff");
  sub->add_option("--cursor", a->curseur, "cursor position BAR:X:STRING");
  sub->add_option("--page", a->page, "draw this printed page of the track instead of the strip")
      ->check(CLI::Range(1, 32767));
  sub->add_option("--dpi", a->dpi, "with --page: pixels to the inch (150 by default)")
      ->check(CLI::Range(30, 1200));
  sub->add_option("--paper", a->papier, "with --page: the sheet, a4 or letter")
      ->check(CLI::IsMember({"a4", "letter"}));
  sub->callback([&ctx, a] {
    a->options.portée = !a->sansPortée;
    if (!a->curseur.empty()) {
      StripImageOptions::Curseur c;
      if (!lireCurseur(a->curseur, c)) {
        std::cerr << "--cursor expects BAR:X:STRING, for instance 2:48:1\n";
        ctx.exitCode = kUsage;
        return;
      }
      a->options.curseur = c;
    }
    ApplicationHorsÉcran application;
    const auto lu = lireDocument(ctx, a->entrée);
    if (!lu) return;
    if (a->page > 0) {
      rendPage(ctx, lu->doc, *a);
      return;
    }
    if (const std::string faute = vérifieOptions(lu->doc, a->options); !faute.empty()) {
      std::cerr << faute << '\n';
      ctx.exitCode = kUsage;
      return;
    }
    const QImage image = renderStripImage(lu->doc, TabSettings{}, a->options);
    if (!enregistrePng(image, a->sortie)) refuse(ctx, 6122, a->sortie);
  });
});

}  // namespace
}  // namespace vt::cli

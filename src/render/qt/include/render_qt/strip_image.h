// The editor's strip drawn offscreen into an image: for the command line, the
// tests, and anything that wants a picture of a track without a window.
#pragma once

#include <QImage>
#include <memory>
#include <optional>
#include <string>

#include "document/tablature.h"
#include "render/tab_settings.h"

class QGuiApplication;

namespace vt {

struct StripImageOptions {
  int piste = 1;
  int premièreMesure = 1;  // the first bar shown (the scroll position)
  int largeur = 1280;
  int hauteur = 400;
  int viewMode = 2;  // 1 quarter, 2 eighth, 3 sixteenth, 4 thirty-second per column
  bool triolet = false;
  bool portée = true;
  struct Curseur {
    int mesure = 1;
    int x = 0;
    int corde = 1;
  };
  // The cursor; without one it stands at the start of the first bar shown.
  std::optional<Curseur> curseur;
};

// Checks the options against the document: empty when they can be drawn, else
// what is wrong with them (in English, for the command line's usage errors).
std::string vérifieOptions(const CVantoroTablature& doc, const StripImageOptions& options);

// The strip as the editor shows it, with `settings` (their view mode, staff and
// cursor replaced by the options). The options must have passed vérifieOptions.
// Needs a QGuiApplication; the font "MusicalSymbols" should be installed.
QImage renderStripImage(const CVantoroTablature& doc, const TabSettings& settings,
                        const StripImageOptions& options);

// Writes a PNG through a temporary file renamed into place: a failed write
// leaves no partial file and keeps an older one. False when it failed.
bool enregistrePng(const QImage& image, const std::string& chemin);

// What a program without windows needs to draw: a QGuiApplication on the
// offscreen platform (unless one exists or another platform is asked for) and
// the music font of the data folder beside the executable.
class ApplicationHorsÉcran {
 public:
  ApplicationHorsÉcran();
  ~ApplicationHorsÉcran();
  ApplicationHorsÉcran(const ApplicationHorsÉcran&) = delete;
  ApplicationHorsÉcran& operator=(const ApplicationHorsÉcran&) = delete;
  // The executable's folder with a trailing "/": the program's data folder.
  const std::string& strAppPath() const { return m_strAppPath; }

 private:
  std::unique_ptr<QGuiApplication> m_app;
  std::string m_strAppPath;
};

}  // namespace vt

// Playback from the editor.
#include <QAction>

#include "editor/ftab.h"
#include "ftab_play.h"
#include "shell/vt.h"

namespace vt {

void FTab::mnuTabPlay(int index) {
  if (m_joue) return;
  const CVantoroTablature& d = doc();
  switch (index) {
    case 1:
      allerMesure(1, 0);
      return;
    case 2:
      allerMesure(d.getMesureLast(), 0);
      return;
    case 7:
      allerMesure(d.getMarkerStartMesure(), d.getMarkerStartX());
      return;
    case 8:
      allerMesure(d.getMarkerStopMesure(), d.getMarkerStopX());
      return;
    default:
      // Playing, the markers' run, the count-in, the loop and the recording
      // arrive with playback.
      return;
  }
}

void FTab::timerTabStartPlay(int) {}
void FTab::timerTabStartPlayMarker(int) {}
void FTab::timerTabStopPlay() {}
void FTab::TimerMIDIStop(bool) {}
void FTab::tmrGFX_Timer() {}
void FTab::initFretboard() {}
void FTab::connecteJeu() {}
void FTab::disponibilitésJeu() {
  for (int i : {0, 3, 4, 5, 10})
    if (QAction* a = entrée(QStringLiteral("mnuTabPlay_%1").arg(i))) a->setEnabled(false);
  for (int i : {1, 2, 7, 8})
    if (QAction* a = entrée(QStringLiteral("mnuTabPlay_%1").arg(i))) a->setEnabled(!m_joue);
}

}  // namespace vt

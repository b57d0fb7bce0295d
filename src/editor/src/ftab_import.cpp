// The import commands: a MIDI file or a text tablature comes in through its
// dialog and takes the document's place, unnamed, once the user confirmed and
// the conversion went well; a changed document is offered to be saved first.
#include <QFileInfo>

#include "editor/ftab.h"
#include "shell/vt.h"

namespace vt {

void FTab::mnuTabFileImportMIDI() {
  importe(true);
}

void FTab::mnuTabFileImportASCII() {
  importe(false);
}

void FTab::importe(bool midi) {
  TimerMIDIStop(true);
  if (save_current_file() == QMessageBox::Cancel) return;
  Settings& s = m_vt.settings();
  const bool retient = s.setTabRememberFolder != kFaux;
  const QString fichier =
      choisitFichier(false, dossierDialogue(), m_vt.loadString(midi ? 6012 : 6013),
                     m_vt.loadString(midi ? 6007 : 6009));
  if (fichier.isEmpty()) return;
  if (retient) s.setTabFolderOpen = QFileInfo(fichier).absolutePath() + QLatin1Char('/');
  arrêteNotes();
  if (!dialogueImport(midi, fichier)) return;
  // The piece has no file of its own yet.
  m_fichier.clear();
  libelléFenêtre();
  selClear();
  tbPistesUpdate();
  termine(true);
  disableUndoRedoButtons();
}

}  // namespace vt

// The export commands: the document as a Standard MIDI File, with or without
// the tablature's own meta-events, and the cursor's track as a text
// tablature. Neither touches the document's name nor its changed state.
#include <QAction>
#include <QFile>
#include <QFileInfo>

#include "editor/ftab.h"
#include "formats/ascii_export.h"
#include "formats/midi_export.h"
#include "shell/vt.h"

namespace vt {

QString FTab::autreExtension(const QString& extension) const {
  // An unnamed document: the folder where the dialogs open.
  if (m_fichier.isEmpty()) return dossierDialogue();
  const QFileInfo info(m_fichier);
  return info.path() + QLatin1Char('/') + info.completeBaseName() + extension;
}

QMessageBox::StandardButton FTab::allerAuRenvoiCassé() {
  CVantoroTablature& d = doc();
  const int cassée = d.checkMesureRenvois();
  if (cassée <= 0) return QMessageBox::NoButton;
  const QMessageBox::StandardButton réponse =
      question(m_vt.loadString(1301) + QString::number(cassée) + m_vt.loadString(1316),
               QMessageBox::Yes | QMessageBox::No);
  if (réponse == QMessageBox::Yes) {
    cacheCurseur();
    d.setCurseurMesure(static_cast<i16>(cassée));
    d.setCurseurX(0);
    termine(false);
  }
  return réponse;
}

void FTab::mnuTabFileExportMIDI() {
  TimerMIDIStop(true);
  // A broken repeat writes nothing: the user is offered to go and see it.
  if (allerAuRenvoiCassé() != QMessageBox::NoButton) return;
  const QString fichier = choisitFichier(true, autreExtension(QStringLiteral(".mid")),
                                         m_vt.loadString(6012), m_vt.loadString(6010));
  if (fichier.isEmpty()) return;
  MidiExportOptions options;
  options.rmtf =
      question(m_vt.loadString(6015), QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
  const Settings& s = m_vt.settings();
  options.effets.setMIDIEffet1Ton = s.setMIDIEffet1Ton;
  options.effets.setMIDIPitchBendRange = s.setMIDIPitchBendRange;
  options.effets.setMIDIPitchDemiTon = s.setMIDIPitchDemiTon;
  m_vt.showHourglass(true);
  const InterchangeResult r =
      exporterMidi(doc(), QFile::encodeName(fichier).toStdString(), options);
  m_vt.showHourglass(false);
  rapporte(r);
  // A repeat that ends the last bar gave the document one more bar.
  termine(true);
}

void FTab::mnuTabFileExportASCII() {
  TimerMIDIStop(true);
  const QString fichier = choisitFichier(true, autreExtension(QStringLiteral(".txt")),
                                         m_vt.loadString(6013), m_vt.loadString(6008));
  if (fichier.isEmpty()) return;
  m_vt.showHourglass(true);
  const InterchangeResult r = exporterTxt(doc(), piste(), QFile::encodeName(fichier).toStdString(),
                                          m_vt.settings().cfgASCIILargeur);
  m_vt.showHourglass(false);
  rapporte(r);
}

void FTab::rapporte(const InterchangeResult& r) {
  for (const int id : r.notices)
    message(m_vt.loadString(id));
  if (r.ok()) return;
  QString texte = m_vt.loadString(r.stringId);
  if (!r.détail.empty()) texte += QLatin1Char('\n') + QString::fromStdString(r.détail);
  message(texte);
}

}  // namespace vt

// File > Export > Audio: the piece as a WAV file, rendered offline by the
// routine `vantoro-cli convert x.vtb x.wav` runs. The rendering goes on its
// own thread over a copy of the document, under a progress bar whose Cancel
// stops it and leaves no file.
#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QProgressDialog>
#include <QTimer>
#include <atomic>
#include <thread>

#include "editor/ftab.h"
#include "ftab_play.h"
#include "player/export_wav.h"
#include "shell/vt.h"

namespace vt {

void FTab::mnuTabFileExportWAV() {
  TimerMIDIStop(true);
  // A broken repeat writes nothing: the user is offered to go and see it.
  if (allerAuRenvoiCassé() != QMessageBox::NoButton) return;
  QString fichier = choisitFichier(true, autreExtension(QStringLiteral(".wav")),
                                   m_vt.loadString(6017), m_vt.loadString(6016));
  if (fichier.isEmpty()) return;
  if (QFileInfo(fichier).suffix().isEmpty()) fichier += QStringLiteral(".wav");
  arrêteNotes();

  const RésultatWav r = rendWav(fichier);
  if (r.annulé) return;
  for (const MessageSon& m : r.messages) {
    QString texte = m_vt.loadString(m.id);
    if (!m.détail.empty()) texte += QLatin1Char('\n') + QString::fromStdString(m.détail);
    message(texte, QMessageBox::Warning);
  }
}

RésultatWav FTab::rendWav(const QString& fichier) {
  std::atomic<double> fait{0.0};
  std::atomic<bool> arrêt{false};
  OptionsRendu rendu;
  rendu.soundFont = QFile::encodeName(m_vt.settings().setSoundFont).toStdString();
  rendu.avancement = [&fait, &arrêt](double f) {
    fait.store(f, std::memory_order_relaxed);
    return !arrêt.load(std::memory_order_relaxed);
  };
  const OptionsJeu jeu = optionsJeu(m_vt.settings());
  const std::string chemin = QFile::encodeName(fichier).toStdString();

  constexpr int kPas = 1000;
  QProgressDialog progrès(m_vt.loadString(6018), m_vt.loadString(91), 0, kPas, this);
  progrès.setObjectName(QStringLiteral("progresWav"));
  progrès.setWindowTitle(m_vt.loadString(6016));
  progrès.setWindowModality(Qt::ApplicationModal);
  progrès.setAutoClose(false);
  progrès.setAutoReset(false);
  progrès.setMinimumDuration(0);
  progrès.setValue(0);
  progrès.show();
  connect(&progrès, &QProgressDialog::canceled, this,
          [&arrêt] { arrêt.store(true, std::memory_order_relaxed); });
  QTimer minuterie;
  connect(&minuterie, &QTimer::timeout, &progrès, [&] {
    if (progrès.wasCanceled()) arrêt.store(true, std::memory_order_relaxed);
    progrès.setValue(static_cast<int>(fait.load(std::memory_order_relaxed) * kPas));
  });
  minuterie.start(50);

  // The thread renders a copy: nothing the window does meanwhile reaches it.
  QEventLoop boucle;
  RésultatWav r;
  std::thread fil([&r, &boucle, &jeu, &rendu, &chemin, copie = doc()] {
    r = exporterWav(copie, chemin, jeu, rendu);
    QMetaObject::invokeMethod(&boucle, &QEventLoop::quit, Qt::QueuedConnection);
  });
  boucle.exec();
  fil.join();
  return r;
}

}  // namespace vt

// The editor as the benchmarks drive it: FTab in the benchmarks' main window,
// the strip 1610 x 700 pixels; keys sent as the window system sends them.
#pragma once

#include <QApplication>
#include <QKeyEvent>
#include <QMdiSubWindow>
#include <cstdlib>

#include "bench_programme.h"
#include "editor/ftab.h"

namespace vt::banc {

struct EditeurBanc : ProgrammeBanc {
  FTab* ftab = nullptr;

  EditeurBanc()
      : ProgrammeBanc(
            [](VT& v) { v.fenetres().enregistrer(fen::FTab, [](VT& w) { return new FTab(w); }); }) {
    ftab = dynamic_cast<FTab*>(vt->montreFenetre(fen::FTab));
    if (ftab == nullptr) std::abort();
    ftab->setOuvreDialogue({}, {});
    if (auto* cadre = qobject_cast<QMdiSubWindow*>(ftab->parentWidget())) cadre->resize(1610, 700);
  }

  // The key as the window system sends it, then what it changed painted.
  void touche(int key, Qt::KeyboardModifiers mod = Qt::NoModifier) {
    QWidget* pic = ftab->picTab();
    QKeyEvent appui(QEvent::KeyPress, key, mod, QString());
    QApplication::sendEvent(pic, &appui);
    QKeyEvent relâche(QEvent::KeyRelease, key, mod, QString());
    QApplication::sendEvent(pic, &relâche);
    QApplication::processEvents();
  }
};

}  // namespace vt::banc

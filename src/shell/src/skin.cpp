#include "shell/skin.h"

#include <QFileInfo>
#include <QImageReader>
#include <array>

namespace vt {

namespace {

constexpr std::array<const char*, kNbrImagesSkin> kNoms = {
    "harmony",
    "metronome",
    "accordeur",
    "boutongammebas",
    "boutongammehaut",
    "bouton E on",
    "bouton E off",
    "accords",
    "logo",
    "apropos",
    "astuce",
    "gammes",
    "gammes0017",
    "accord0017",
    "tictac0034",
    "pbplay0017",
    "accordeur0014",
    "tablature0017",
    "aide0017",
    "baguette0017",
    "baguette0018",
    "tuner0017",
    "tuner0000",
    "bouton tone 0007",
    "bouton tone 0006",
    "bouton tone 0005",
    "bouton tone 0004",
    "bouton tone 0003",
    "bouton tone 0002",
    "bouton tone 0001",
    "exit 0001",
    "exit 0000",
    "bascule 0002",
    "bascule 0001",
    "fond",
    "beat01",
    "beat02",
    "beat03",
    "beat04",
    "beat05",
    "beat06",
    "beat07",
    "beat08",
    "beat09",
    "beat10",
    "beat11",
    "beat12",
    "beat13",
    "beat14",
    "beat15",
    "beat16",
    "tempoHUp",
    "tempoHDn",
    "tempoMUp",
    "tempoMDn",
    "tempoLUp",
    "tempoLDn",
    "metro exit on",
    "metro exit off",
    "metrobasc2",
    "metrobasc1",
    "tempoHOff",
    "tempoMOff",
    "tempoLOff",
    "play2",
    "play1",
    "stop2",
    "stop1",
    "manchefond",
    "copier0017",
    "imprimer0016",
    "options0017",
    "copier0018",
    "imprimer0017",
    "options0018",
    "ecran",
    "metroac",
    "exit0018",
    "exit0017",
    "gammes0018",
    "accord0018",
    "tictac0035",
    "pbplay0018",
    "accordeur0015",
    "tablature0018",
    "aide0018",
};

QString cherche(const QString& strAppPath, const QString& strSkinPath, const QString& nom) {
  const QString dossier = skinFolder(strAppPath, strSkinPath);
  const QString défaut = skinFolder(strAppPath, QString::fromUtf8(kSkinParDéfaut));
  // A skin's file that is no picture (cut, or something else under the name)
  // gives way to the next one, down to the default skin's.
  for (const QString& chemin :
       {dossier + nom + QStringLiteral(".bmp"), dossier + nom + QStringLiteral(".jpg"),
        défaut + nom + QStringLiteral(".bmp")}) {
    if (QFileInfo(chemin).isFile() && QImageReader(chemin).canRead()) return chemin;
  }
  return défaut + nom + QStringLiteral(".jpg");
}

}  // namespace

QString skinName(int index) {
  if (index < 0 || index >= kNbrImagesSkin) return {};
  return QString::fromUtf8(kNoms[static_cast<std::size_t>(index)]);
}

QString skinFolder(const QString& strAppPath, const QString& strSkinPath) {
  return strAppPath + QStringLiteral("skins/") + strSkinPath + QLatin1Char('/');
}

QString skinFile(const QString& strAppPath, const QString& strSkinPath, int index) {
  return cherche(strAppPath, strSkinPath, skinName(index));
}

QString skinTicTac(const QString& strAppPath, const QString& strSkinPath, int frame) {
  const QString numéro = (frame < 10 ? QStringLiteral("0") : QString()) + QString::number(frame);
  return cherche(strAppPath, strSkinPath, QStringLiteral("tictac") + numéro);
}

}  // namespace vt

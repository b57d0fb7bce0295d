// The editor's menus: File, Edit, View, Effects, Play, Tools, Tracks and the
// pop-up of a note. Each entry is named after its menu and index
// ("mnuTabEdit_13"); its caption comes from the string table, followed by the
// key of the strip that does the same. Commands that arrive with later work
// are there and disabled.
#include <QAction>
#include <QMenu>
#include <QMenuBar>

#include "dialogs/ftab_drums.h"
#include "document/cp1252.h"
#include "editor/ftab.h"
#include "shell/vt.h"

namespace vt {

namespace {
QString nomEntrée(const char* menu, int index) {
  return QString::fromLatin1(menu) + QLatin1Char('_') + QString::number(index);
}
}  // namespace

QMenu* FTab::menu(QMenu* parent, const QString& nom, int titre) {
  auto* m = new QMenu(parent != nullptr ? static_cast<QWidget*>(parent) : m_barreMenus);
  m->setObjectName(nom);
  if (parent != nullptr) {
    parent->addMenu(m);
  } else {
    m_barreMenus->addMenu(m);
  }
  m_menus[nom] = m;
  m_libellés.push_back({m->menuAction(), titre, {}});
  return m;
}

QAction* FTab::ajoute(QMenu* m, const QString& nom, int texte, std::function<void()> commande,
                      const QKeySequence& touche, bool cochable) {
  QAction* a = m->addAction(QString());
  a->setObjectName(nom);
  a->setCheckable(cochable);
  connect(a, &QAction::triggered, this, [commande = std::move(commande)] { commande(); });
  m_entrées[nom] = a;
  m_libellés.push_back({a, texte, touche});
  return a;
}

void FTab::créeMenus() {
  // ---- File ----
  QMenu* f = menu(nullptr, QStringLiteral("mnuTabFile"), 1206);
  const std::array<QKeySequence, 4> kToucheFichier{
      QKeySequence(Qt::CTRL | Qt::Key_N), QKeySequence(Qt::CTRL | Qt::Key_O),
      QKeySequence(Qt::CTRL | Qt::Key_S), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S)};
  for (const auto& [i, id] : {std::pair{0, 1221}, {1, 1222}, {2, 1223}, {3, 1224}})
    ajoute(
        f, nomEntrée("mnuTabFile", i), id, [this, i = i] { MenuTabFile(i); },
        kToucheFichier[static_cast<std::size_t>(i)]);
  f->addSeparator();
  QMenu* import = menu(f, QStringLiteral("mnuTabFile_5"), 1226);
  ajoute(import, QStringLiteral("mnuTabFileImportMIDI"), 1285, [this] { mnuTabFileImportMIDI(); });
  ajoute(import, QStringLiteral("mnuTabFileImportASCII"), 1286,
         [this] { mnuTabFileImportASCII(); });
  f->addSeparator();
  QMenu* export_ = menu(f, QStringLiteral("mnuTabFile_7"), 1225);
  ajoute(export_, QStringLiteral("mnuTabFileExportMIDI"), 1285, [this] { mnuTabFileExportMIDI(); });
  ajoute(export_, QStringLiteral("mnuTabFileExportASCII"), 1286,
         [this] { mnuTabFileExportASCII(); });
  ajoute(export_, QStringLiteral("mnuTabFileExportWAV"), 1380, [this] { mnuTabFileExportWAV(); });
  export_->addSeparator();
  ajoute(export_, QStringLiteral("mnuTabFileExportPDF_0"), 1277,
         [this] { mnuTabFileExportPDF(true); });
  ajoute(export_, QStringLiteral("mnuTabFileExportPDF_1"), 1278,
         [this] { mnuTabFileExportPDF(false); });
  f->addSeparator();
  QMenu* langue = menu(f, QStringLiteral("mnuTabFile_9"), 14);
  for (int i = 0; i < 2; ++i)
    ajoute(
        langue, nomEntrée("mnuTabFileLang", i), 15 + i, [this, i] { m_vt.mnuFileLang_Click(i); },
        {}, true);
  f->addSeparator();
  for (const auto& [i, id] : {std::pair{11, 1227}, {12, 1229}, {13, 13}, {14, 1259}})
    ajoute(f, nomEntrée("mnuTabFile", i), id, [this, i = i] { MenuTabFile(i); });
  f->addSeparator();
  ajoute(f, nomEntrée("mnuTabFile", 16), 12, [this] { MenuTabFile(16); });
  ajoute(
      f, nomEntrée("mnuTabFile", 17), 11, [this] { MenuTabFile(17); },
      QKeySequence(Qt::Key_Escape));
  m_entrées[QStringLiteral("mnuTabFile_18")] = f->addSeparator();
  for (int i = 19; i <= 22; ++i) {
    QAction* a = f->addAction(QString());
    a->setObjectName(nomEntrée("mnuTabFile", i));
    connect(a, &QAction::triggered, this, [this, i] { MenuTabFile(i); });
    m_entrées[a->objectName()] = a;
  }

  // ---- Edit ----
  QMenu* e = menu(nullptr, QStringLiteral("mnuTabEdit"), 1207);
  const auto edit = [this, e](int i, int id, const QKeySequence& touche = {}) {
    ajoute(
        e, nomEntrée("mnuTabEdit", i), id, [this, i] { mnuTabEdit(i); }, touche);
  };
  edit(0, 1324, QKeySequence(Qt::CTRL | Qt::Key_Z));
  edit(1, 1325, QKeySequence(Qt::CTRL | Qt::Key_Y));
  e->addSeparator();
  edit(3, 1327, QKeySequence(Qt::CTRL | Qt::Key_X));
  edit(4, 1328, QKeySequence(Qt::CTRL | Qt::Key_C));
  edit(5, 1329, QKeySequence(Qt::CTRL | Qt::Key_V));
  e->addSeparator();
  edit(7, 1230);
  edit(8, 1231);
  edit(9, 1232);
  edit(10, 1257);
  edit(11, 1320);
  e->addSeparator();
  edit(13, 1219, QKeySequence(Qt::ALT | Qt::Key_Return));
  e->addSeparator();
  edit(15, 1228);
  edit(16, 1284, QKeySequence(Qt::Key_S));
  edit(17, 525, QKeySequence(Qt::Key_Q));
  edit(18, 1283);
  edit(19, 535);

  // ---- View ----
  QMenu* v = menu(nullptr, QStringLiteral("mnuTabDisplay"), 1210);
  const auto vue = [this, v](int i, int id) {
    ajoute(
        v, nomEntrée("mnuTabDisplay", i), id, [this, i] { mnuTabDisplay(i); }, {}, true);
  };
  vue(0, 1290);
  vue(1, 1291);
  vue(2, 1292);
  vue(3, 1297);
  vue(4, 1298);
  v->addSeparator();
  vue(6, 1299);
  vue(7, 1304);
  v->addSeparator();
  QMenu* barres = menu(v, QStringLiteral("mnuTabDisplay_9"), 1305);
  const std::array<int, 7> kBarres{1311, 1312, 1313, 1314, 1315, 1317, 1326};
  for (int i = 0; i < 7; ++i)
    ajoute(
        barres, nomEntrée("mnuTabDisplayToolbar", i), kBarres[static_cast<std::size_t>(i)],
        [this, i] { mnuTabDisplayToolbar(i); }, {}, true);
  ajoute(v, nomEntrée("mnuTabDisplay", 10), 1306, [this] { mnuTabDisplay(10); });

  // ---- Effects ----
  QMenu* ef = menu(nullptr, QStringLiteral("mnuTabEffet"), 1211);
  const std::array<int, 13> kToucheEffet{Qt::Key_H, Qt::Key_P, Qt::Key_U, Qt::Key_D, Qt::Key_V,
                                         Qt::Key_B, Qt::Key_W, Qt::Key_C, Qt::Key_N, Qt::Key_K,
                                         Qt::Key_T, Qt::Key_L, 0};
  for (int i = 0; i < 13; ++i) {
    const int touche = kToucheEffet[static_cast<std::size_t>(i)];
    ajoute(
        ef, nomEntrée("mnuTabEffet", i), 1330 + i, [this, i] { mnuTabEffet(i); },
        touche != 0 ? QKeySequence(touche) : QKeySequence(), true);
  }

  // ---- Play ----
  QMenu* j = menu(nullptr, QStringLiteral("mnuTabPlay"), 1217);
  const auto joue = [this, j](int i, int id, const QKeySequence& touche = {}, bool coche = false) {
    ajoute(
        j, nomEntrée("mnuTabPlay", i), id, [this, i] { mnuTabPlay(i); }, touche, coche);
  };
  joue(0, 1287, QKeySequence(Qt::Key_Space));
  joue(1, 1288, QKeySequence(Qt::Key_Home));
  joue(2, 1289, QKeySequence(Qt::Key_End));
  joue(3, 1300);
  joue(4, 1296, {}, true);
  joue(5, 1295, {}, true);
  j->addSeparator();
  joue(7, 1302);
  joue(8, 1303);
  j->addSeparator();
  joue(10, 1309, QKeySequence(Qt::CTRL | Qt::Key_R), true);

  // ---- Tools: rhythm, attack, nuance, texts and chords ----
  QMenu* t = menu(nullptr, QStringLiteral("mnuTabTool"), 1218);
  QMenu* rythme = menu(t, QStringLiteral("mnuTabTool_0"), 1356);
  for (int i = 0; i < 6; ++i)
    ajoute(
        rythme, nomEntrée("mnuTabToolRythme", i), 1357 + i, [this, i] { mnuTabToolRythme(i); },
        QKeySequence(QKeyCombination(Qt::ControlModifier, static_cast<Qt::Key>(Qt::Key_1 + i))),
        true);
  rythme->addSeparator();
  ajoute(
      rythme, nomEntrée("mnuTabToolRythme", 7), 1363, [this] { mnuTabToolRythme(7); },
      QKeySequence(QKeyCombination(Qt::ControlModifier | Qt::KeypadModifier, Qt::Key_Period)),
      true);
  ajoute(
      rythme, nomEntrée("mnuTabToolRythme", 8), 1364, [this] { mnuTabToolRythme(8); },
      QKeySequence(QKeyCombination(Qt::ControlModifier | Qt::KeypadModifier, Qt::Key_9)), true);
  QMenu* attaque = menu(t, QStringLiteral("mnuTabTool_1"), 1343);
  const std::array<int, kNbAttaques> kToucheAttaque{Qt::Key_N, Qt::Key_T, Qt::Key_S, Qt::Key_P,
                                                    Qt::Key_U, Qt::Key_D, Qt::Key_H, Qt::Key_A,
                                                    Qt::Key_X, Qt::Key_M, Qt::Key_B, Qt::Key_V};
  for (int i = 0; i < kNbAttaques; ++i)
    ajoute(
        attaque, nomEntrée("mnuTabToolAttaque", i), 1344 + i, [this, i] { mnuTabToolAttaque(i); },
        QKeySequence(QKeyCombination(
            Qt::ShiftModifier, static_cast<Qt::Key>(kToucheAttaque[static_cast<std::size_t>(i)]))),
        true);
  QMenu* nuance = menu(t, QStringLiteral("mnuTabTool_2"), 1368);
  for (int i = 0; i < kNbNuances; ++i)
    ajoute(
        nuance, nomEntrée("mnuTabToolVolume", i), 1369 + i, [this, i] { mnuTabToolVolume(i); }, {},
        true);
  t->addSeparator();
  ajoute(t, nomEntrée("mnuTabTool", 4), 1365, [this] { mnuTabTool(4); });
  ajoute(
      t, nomEntrée("mnuTabTool", 5), 1366, [this] { mnuTabTool(5); }, QKeySequence(Qt::Key_A));
  ajoute(t, nomEntrée("mnuTabTool", 6), 1367, [this] { mnuTabTool(6); });

  // ---- Tracks: the commands, then one entry per track (tbPistesUpdate) ----
  QMenu* pistes = menu(nullptr, QStringLiteral("mnutabPistes"), 1220);
  for (const auto& [i, id] : {std::pair{1, 1318}, {2, 1319}, {3, 1321}})
    ajoute(pistes, nomEntrée("mnutabPistes", i), id, [this, i = i] { mnutabPistes(i); });
  pistes->addSeparator();

  // ---- The pop-up of a note ----
  m_mnuTabPopUp = new QMenu(this);
  m_mnuTabPopUp->setObjectName(QStringLiteral("mnuTabPopUp"));
  ajoute(
      m_mnuTabPopUp, nomEntrée("mnuTabPopUp", 0), 1293, [this] { mnuTabPopUp(0); },
      QKeySequence(Qt::Key_PageUp));
  ajoute(
      m_mnuTabPopUp, nomEntrée("mnuTabPopUp", 1), 1294, [this] { mnuTabPopUp(1); },
      QKeySequence(Qt::Key_PageDown));
  m_mnuTabPopUp->addSeparator();
  m_mnuTabPopUp->addMenu(ef);
  m_mnuTabPopUp->addMenu(attaque);
  m_mnuTabPopUp->addMenu(nuance);
  m_mnuTabPopUp->addSeparator();
  ajoute(m_mnuTabPopUp, nomEntrée("mnuTabPopUp", 3), 1307, [this] { mnuTabPopUp(3); });
  ajoute(m_mnuTabPopUp, nomEntrée("mnuTabPopUp", 4), 1308, [this] { mnuTabPopUp(4); });
}

void FTab::libellésMenus() {
  for (const Libellé& l : m_libellés) {
    QString texte = m_vt.loadString(l.texte);
    if (!l.touche.isEmpty())
      texte += QLatin1Char('\t') + l.touche.toString(QKeySequence::NativeText);
    l.action->setText(texte);
  }
}

void FTab::libelléFenêtre() {
  QString titre = m_vt.loadString(1200);
  if (!m_fichier.isEmpty()) titre += QStringLiteral(" - ") + m_fichier;
  // Qt puts its mark of unsaved changes in place of "[*]".
  setWindowTitle(titre + QStringLiteral("[*]"));
  marqueModifiéTitre();
}

void FTab::marqueModifiéTitre() {
  setWindowModified(doc().modifi != kFaux);
}

void FTab::load_lang() {
  libellésMenus();
  bullesBarres();
  if (m_batterie != nullptr) m_batterie->load_lang(Textes{m_vt.setLang()});
  libelléFenêtre();
  entrée(QStringLiteral("mnuTabFileLang_0"))->setChecked(m_vt.setLang() == kLangFrançais);
  entrée(QStringLiteral("mnuTabFileLang_1"))->setChecked(m_vt.setLang() != kLangFrançais);
  updateLastOpenFile();
}

void FTab::disponibilités() {
  const auto active = [this](const QString& nom, bool oui) {
    if (QAction* a = entrée(nom)) a->setEnabled(oui);
  };
  const auto dialogue = [this](DialogueTab d) { return dialogueDisponible(d) && !m_joue; };
  // Edit: undo and redo by their stacks, the note and bar clipboards to come,
  // the dialogs when they are connected.
  active(QStringLiteral("mnuTabEdit_0"), doc().getUndoDepth() > 0 && !m_joue);
  active(QStringLiteral("mnuTabEdit_1"), doc().getRedoDepth() > 0 && !m_joue);
  // Cut and copy take the selection; paste waits for a first copy.
  const bool sélection = aUneSélection(doc());
  active(QStringLiteral("mnuTabEdit_3"), sélection);
  active(QStringLiteral("mnuTabEdit_4"), sélection);
  active(QStringLiteral("mnuTabEdit_5"), m_pressePapierNotes.aDuContenu());
  active(QStringLiteral("mnuTabEdit_9"), m_pressePapierMesures.aDuContenu());
  for (int i : {7, 8, 10, 11})
    active(nomEntrée("mnuTabEdit", i), true);
  active(QStringLiteral("mnuTabEdit_13"), dialogue(DialogueTab::Proprietes));
  active(QStringLiteral("mnuTabEdit_15"), dialogue(DialogueTab::Transpose));
  active(QStringLiteral("mnuTabEdit_16"), dialogue(DialogueTab::Signature));
  active(QStringLiteral("mnuTabEdit_17"), dialogue(DialogueTab::Tonalite));
  active(QStringLiteral("mnuTabEdit_18"), dialogue(DialogueTab::BarresMesure));
  active(QStringLiteral("mnuTabEdit_19"), dialogue(DialogueTab::Tempo));
  disponibilitésJeu();
  active(QStringLiteral("mnuTabTool_4"), dialogue(DialogueTab::Texte));
  active(QStringLiteral("mnuTabTool_5"), dialogue(DialogueTab::Accord));
  active(QStringLiteral("mnuTabTool_6"), m_vt.fenetres().estDisponible(fen::FAccords) && !m_joue);
  disponibilitésPistes();
  boutonsSuiventMenus();
  marqueModifiéTitre();
}

void FTab::disableUndoRedoButtons() {
  entrée(QStringLiteral("mnuTabEdit_0"))->setEnabled(false);
  entrée(QStringLiteral("mnuTabEdit_1"))->setEnabled(false);
  boutonsSuiventMenus();
}

void FTab::marquesOutils() {
  const auto coche = [this](const QString& nom, bool oui) {
    if (QAction* a = entrée(nom)) a->setChecked(oui);
  };
  for (int i = 0; i < 6; ++i)
    coche(nomEntrée("mnuTabToolRythme", i), m_outils.rythme == i);
  coche(QStringLiteral("mnuTabToolRythme_7"), m_outils.pointée);
  coche(QStringLiteral("mnuTabToolRythme_8"), m_outils.triolet);
  const int a = indexMenuAttaque(m_outils.attaque);
  for (int i = 0; i < kNbAttaques; ++i)
    coche(nomEntrée("mnuTabToolAttaque", i), a == i);
  for (int i = 0; i < kNbNuances; ++i)
    coche(nomEntrée("mnuTabToolVolume", i), m_outils.nuance == i + 1);
  static constexpr std::array<byt, 13> kEffets{
      effet::kHammerOn, effet::kPullOff,    effet::kSlideUp,    effet::kSlideDown, effet::kVibrato,
      effet::kBendUp,   effet::kBendUpDown, effet::kBendReturn, effet::kBendDown,  effet::kTremolo,
      effet::kTrill,    effet::kLiaison,    effet::kAucun};
  for (int i = 0; i < 13; ++i)
    coche(nomEntrée("mnuTabEffet", i), kEffets[static_cast<std::size_t>(i)] == m_outils.effet);
  boutonsSuiventMenus();
}

void FTab::marquesVue() {
  const auto coche = [this](const QString& nom, bool oui) {
    if (QAction* a = entrée(nom)) a->setChecked(oui);
  };
  for (int i = 0; i < 4; ++i)
    coche(nomEntrée("mnuTabDisplay", i), m_tab.viewMode == i + 1);
  coche(QStringLiteral("mnuTabDisplay_4"), m_tab.viewModeTriolet);
  coche(QStringLiteral("mnuTabDisplay_6"), m_vt.settings().cfgAffichePortée != 0);
  coche(QStringLiteral("mnuTabDisplay_7"), m_vt.settings().cfgTabSynchronise != 0);
  marquesBarres();
  boutonsSuiventMenus();
}

void FTab::updateLastOpenFile() {
  const Settings& s = m_vt.settings();
  entrée(QStringLiteral("mnuTabFile_18"))->setVisible(!s.setTabLastOpenFile[1].isEmpty());
  for (int n = 1; n <= 4; ++n) {
    QAction* a = entrée(nomEntrée("mnuTabFile", 18 + n));
    const QString& chemin = s.setTabLastOpenFile[static_cast<std::size_t>(n)];
    a->setVisible(!chemin.isEmpty());
    a->setText(QStringLiteral("&") + QString::number(n) + QLatin1Char(' ') + chemin);
  }
}

}  // namespace vt

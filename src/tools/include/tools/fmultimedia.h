// FMultimedia, the media player: a drive list, a folder tree and a file list
// with a type filter, the start/stop toggle of the skin (picture 21 stopped,
// 22 playing), the backend's error in a box, video in the window; for
// practising along a recording, a speed from 50% to 100% and an A-B loop.
// The last drive and folder are kept ("mciDrive", "mciPath"); closing the
// window stops and closes the media.
#pragma once

#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <memory>

#include "shell/fenetres.h"

class QComboBox;
class QFileSystemModel;
class QLabel;
class QListView;
class QPushButton;
class QSlider;
class QStackedWidget;
class QStringListModel;
class QTreeView;
class QVideoWidget;

namespace vt {

class VT;
class VTPictureButton;
class LecteurMci;

class FMultimedia : public QWidget, public FenetreVT {
  Q_OBJECT

 public:
  explicit FMultimedia(VT& vt, QWidget* parent = nullptr);
  ~FMultimedia() override;

  void load_lang() override;
  void load_skin() override;

  // The start/stop toggle: playing, it stops; stopped, it closes, opens and
  // plays the chosen file (or disc track).
  void btnStart_Click();
  bool joue() const { return m_joue; }
  // The chosen file's (or track's) address; empty when nothing is chosen.
  QUrl choix() const;
  // Chooses a file by its path: its drive, folder and entry in the lists.
  bool choisitFichier(const QString& chemin);

  void Lecteur_Change(int index);
  void Repertoire_Change(const QString& dossier);
  void combFileType_Change(int index);

  // Speed in percent, 50 to 100.
  void setVitesse(int pourcent);
  void marqueA();
  void marqueB();
  void effaceBoucle();

  // How a message is shown (a box; the tests write it down).
  std::function<void(const QString& texte)> message;

  LecteurMci& lecteur() { return *m_lecteur; }
  VTPictureButton* btnStart() const { return m_btnStart; }
  QComboBox* cmbLecteur() const { return m_cmbLecteur; }
  QTreeView* lstRepertoire() const { return m_répertoire; }
  QListView* lstFichier() const { return m_fichier; }
  QComboBox* combFileType() const { return m_type; }
  QSlider* sldVitesse() const { return m_vitesse; }
  QLabel* labBoucle() const { return m_labBoucle; }

 protected:
  void closeEvent(QCloseEvent* e) override;

 private:
  void construit();
  void remplitLecteurs();
  void montreDossier();
  void montreEtat();
  void montreTemps();
  void montreBoucle();
  void arrêtéParLeLecteur();

  VT& m_vt;
  std::unique_ptr<LecteurMci> m_lecteur;
  bool m_joue = false;
  bool m_sansSortieDit = false;
  QString m_disque;  // the drive of an audio disc chosen, else empty

  QComboBox* m_cmbLecteur = nullptr;
  QTreeView* m_répertoire = nullptr;
  QListView* m_fichier = nullptr;
  QComboBox* m_type = nullptr;
  QFileSystemModel* m_modèleDossiers = nullptr;
  QFileSystemModel* m_modèleFichiers = nullptr;
  QStringListModel* m_modèlePistes = nullptr;
  QStackedWidget* m_écran = nullptr;
  QLabel* m_titre = nullptr;
  QVideoWidget* m_vidéo = nullptr;
  VTPictureButton* m_btnStart = nullptr;
  QSlider* m_position = nullptr;
  QLabel* m_temps = nullptr;
  QSlider* m_vitesse = nullptr;
  QLabel* m_labVitesse = nullptr;
  QPushButton* m_btnA = nullptr;
  QPushButton* m_btnB = nullptr;
  QPushButton* m_btnSansBoucle = nullptr;
  QLabel* m_labBoucle = nullptr;
  QLabel* m_labLecteur = nullptr;
  QLabel* m_labRépertoire = nullptr;
  QLabel* m_labFichier = nullptr;
  QLabel* m_labType = nullptr;
  bool m_glisse = false;
  bool m_dossierAMontrer = false;
};

}  // namespace vt

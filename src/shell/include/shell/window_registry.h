// The one registry of the windows: each window is known by its class name,
// created by its factory on first use, one instance at a time. A window whose
// factory is not registered does not exist in this build: its menu entries and
// buttons stay disabled. The tool and editor windows register themselves from
// the program's main() before the boot sequence:
//
//   vt.fenetres().enregistrer(fen::FAccords, [](VT& vt) { return new FAccords(vt); });
//
// A tool window becomes a child of the main window's MDI area; a dialog
// (FOptions) stays loaded and hidden between uses.
#pragma once

#include <QPointer>
#include <QString>
#include <QWidget>
#include <functional>
#include <map>
#include <vector>

namespace vt {

class VT;

namespace fen {
inline const QString FAccords = QStringLiteral("FAccords");
inline const QString FGammes = QStringLiteral("FGammes");
inline const QString FMultimedia = QStringLiteral("FMultimedia");
inline const QString FAccordeur = QStringLiteral("FAccordeur");
inline const QString FMetronome = QStringLiteral("FMetronome");
inline const QString FTab = QStringLiteral("FTab");
inline const QString FHarmony = QStringLiteral("FHarmony");
inline const QString FOptions = QStringLiteral("FOptions");
inline const QString FAide = QStringLiteral("FAide");
}  // namespace fen

class RegistreFenetres {
 public:
  enum class Genre { Mdi, Dialogue };
  using Fabrique = std::function<QWidget*(VT&)>;

  explicit RegistreFenetres(VT& vt) : m_vt(vt) {}

  void enregistrer(const QString& nom, Fabrique fabrique, Genre genre = Genre::Mdi);
  // A factory exists for this name.
  bool estDisponible(const QString& nom) const;
  // The window exists now.
  bool isFormLoaded(const QString& nom) const;
  // The window, or nullptr when it is not loaded.
  QWidget* fenetre(const QString& nom) const;
  template <class T>
  T* interface(const QString& nom) const {
    return dynamic_cast<T*>(fenetre(nom));
  }
  // The window, created on first use; nullptr when no factory is registered.
  QWidget* charge(const QString& nom);
  // Closes the window (it may refuse); true when it is gone.
  bool décharge(const QString& nom);
  // The loaded windows, in the order of registration.
  std::vector<QWidget*> chargées() const;
  Genre genre(const QString& nom) const;

 private:
  struct Entrée {
    Fabrique fabrique;
    Genre genre = Genre::Mdi;
    QPointer<QWidget> instance;
    int ordre = 0;
  };
  VT& m_vt;
  std::map<QString, Entrée> m_entrées;
};

}  // namespace vt

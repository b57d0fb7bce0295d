#include "shell/window_registry.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <algorithm>

#include "shell/vt.h"

namespace vt {

void RegistreFenetres::enregistrer(const QString& nom, Fabrique fabrique, Genre genre) {
  Entrée& e = m_entrées[nom];
  e.fabrique = std::move(fabrique);
  e.genre = genre;
  e.ordre = static_cast<int>(m_entrées.size());
  m_vt.disponibilités();
}

bool RegistreFenetres::estDisponible(const QString& nom) const {
  const auto it = m_entrées.find(nom);
  return it != m_entrées.end() && it->second.fabrique;
}

bool RegistreFenetres::isFormLoaded(const QString& nom) const {
  return fenetre(nom) != nullptr;
}

QWidget* RegistreFenetres::fenetre(const QString& nom) const {
  const auto it = m_entrées.find(nom);
  return it == m_entrées.end() ? nullptr : it->second.instance.data();
}

RegistreFenetres::Genre RegistreFenetres::genre(const QString& nom) const {
  const auto it = m_entrées.find(nom);
  return it == m_entrées.end() ? Genre::Mdi : it->second.genre;
}

QWidget* RegistreFenetres::charge(const QString& nom) {
  const auto it = m_entrées.find(nom);
  if (it == m_entrées.end() || !it->second.fabrique) return nullptr;
  Entrée& e = it->second;
  if (e.instance) return e.instance;
  QWidget* w = e.fabrique(m_vt);
  if (!w) return nullptr;
  w->setObjectName(nom);
  if (e.genre == Genre::Mdi) {
    QMdiSubWindow* sub = m_vt.mdiArea()->addSubWindow(w);
    sub->setAttribute(Qt::WA_DeleteOnClose);
    sub->setObjectName(nom + QStringLiteral("_mdi"));
    sub->adjustSize();
  }
  e.instance = w;
  return w;
}

bool RegistreFenetres::décharge(const QString& nom) {
  QWidget* w = fenetre(nom);
  if (!w) return true;
  QWidget* cadre = qobject_cast<QMdiSubWindow*>(w->parentWidget());
  if (!cadre) {
    // A dialog kept hidden between uses has nothing to refuse.
    w->close();
    delete w;
    return true;
  }
  return cadre->close();
}

std::vector<QWidget*> RegistreFenetres::chargées() const {
  std::vector<std::pair<int, QWidget*>> liste;
  for (const auto& [nom, e] : m_entrées)
    if (e.instance) liste.emplace_back(e.ordre, e.instance.data());
  std::sort(liste.begin(), liste.end(),
            [](const auto& a, const auto& b) { return a.first < b.first; });
  std::vector<QWidget*> r;
  for (const auto& [ordre, w] : liste)
    r.push_back(w);
  return r;
}

}  // namespace vt

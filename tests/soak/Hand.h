#pragma once

#include "demo/DemoRandom.h"
#include "tests/soak/SoakClient.h"

namespace orv::soak {

/// What a person may do next, drawn by lot. Everything on the page in front can be pressed and typed into, and nothing
/// that is not: dialogs that are closed, buttons that are grey.
class Hand {
 public:
  /// Files to choose lie in the folder.
  Hand(SoakClient& client, quint64 seed, const QStringList& files) : m_client(client), m_random(seed), m_files(files) {}

  /// Does one thing and gives its name, as "CampaignsStore::pause(c12)". Empty where there was nothing to do it to.
  QString press();

 private:
  QString answer();
  QString message();
  QString travel();
  QString act();
  QString set();
  QString call();
  QString scroll();
  QString shell();

  /// A part of the page that is shown and that `isOne` of.
  const Part* pick(const QList<Part>& parts, const std::function<bool(const Part&)>& isOne);
  /// Records that the part is about or, where it shows none itself, the page.
  QStringList idsFor(const QObject& object, const QList<Part>& parts);
  QVariant valueFor(const QString& name, QMetaType type, const QObject& object, const QList<Part>& parts);
  QString textFor(const QString& name, const QObject& object, const QList<Part>& parts);
  QString written();
  QString invoke(QObject& object, const QMetaMethod& method, const QList<Part>& parts);

  SoakClient& m_client;
  demo::DemoRandom m_random;
  QStringList m_files;
  /// The one that was named last.
  QString m_field;
};

}  // namespace orv::soak

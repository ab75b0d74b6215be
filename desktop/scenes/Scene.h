#pragma once

#include "desktop/scenes/Stage.h"

namespace orv {

/// A state of the program to be looked at.
struct Scene {
  QString name;
  /// Brings the program there, and need not wait for what comes of it.
  std::function<void(Stage&)> play;
  /// How the first load already fares.
  StagedTransport::Mode mode = StagedTransport::Mode::passing;
  bool signedIn = true;
  /// A page as it usually looks, which stands for it where only one picture is wanted.
  bool isPage = false;
};

inline Scene page(const QString& name, std::function<void(Stage&)> play) {
  return {.name = name, .play = std::move(play), .isPage = true};
}

// One list for each area: a new state is one entry in its area's.
QList<Scene> signInScenes();
QList<Scene> shellScenes();
QList<Scene> analyticsScenes();
QList<Scene> campaignsScenes();
QList<Scene> campaignScenes();
QList<Scene> accountsScenes();
QList<Scene> accountDetailScenes();
QList<Scene> deliverabilityScenes();
QList<Scene> rampupScenes();
QList<Scene> settingsScenes();
QList<Scene> setupScenes();
QList<Scene> inboxScenes();
QList<Scene> draftsScenes();
QList<Scene> leadListsScenes();
QList<Scene> leadsScenes();

inline QList<Scene> allScenes() {
  return signInScenes() + shellScenes() + analyticsScenes() + campaignsScenes() + campaignScenes() + accountsScenes() +
         accountDetailScenes() + deliverabilityScenes() + rampupScenes() + leadsScenes() + leadListsScenes() +
         inboxScenes() + draftsScenes() + settingsScenes() + setupScenes();
}

}  // namespace orv

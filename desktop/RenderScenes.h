#pragma once

#include <functional>

#include "desktop/RenderStage.h"

namespace orv {

/// A state of the program to be looked at.
struct Scene {
  QString name;
  /// Brings the program there, and need not wait for what comes of it.
  std::function<void(Stage&)> play;
  /// How the first load already fares.
  StagedTransport::Mode mode = StagedTransport::Mode::passing;
  bool signedIn = true;
};

QList<Scene> allScenes();

/// Those of one campaign's page, all its tabs.
QList<Scene> campaignPageScenes();

}  // namespace orv

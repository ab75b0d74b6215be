#pragma once

#include <QString>

#include "kit/api/APIEnvironment.h"

namespace orv {

/// Where what is kept between starts stands. Every origin has places of its own, so that no service is ever handed what
/// another gave; production's are the application's plain ones.
struct KeptPlaces {
  /// The name under which the keychain's items live.
  QString keychainService;
  QString stateFolder;
  bool operator==(const KeptPlaces&) const = default;

  static KeptPlaces of(const APIEnvironment& environment, const QString& application, const QString& folder);
};

}  // namespace orv

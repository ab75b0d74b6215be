#pragma once

#include <QString>
#include <QStringList>

namespace orv {

/// What the program was started with.
struct Options {
  /// The sample workspace, without a network.
  bool demo = false;
  /// At least so many campaigns in the sample.
  int demoCampaigns = 0;
  /// Nothing is read from or left in the keyring.
  bool fresh = false;
  /// Ends after the first frame with content or with the sign-in, having said on standard output which it was and how
  /// much memory is in use: for measuring and for trying a package.
  bool untilContent = false;
  /// Links and whatever else stands after the options.
  QStringList arguments;

  /// Before there is an application object: what is asked for decides which one can be made. Ends the program for
  /// --help, --version and options that it does not know.
  static Options parse(int argc, char** argv);
};

}  // namespace orv

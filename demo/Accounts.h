#pragma once

#include "demo/DemoState.h"

namespace orv::demo {

/// The account that has everything in the sample.
QString mainAccount();

NativeSession openSession(DemoState& state, DemoRandom& random, const QDateTime& now, const QString& email);

/// A code for the account, to be exchanged once with the verifier of `challenge`.
QString grantGoogleCode(DemoState& state, DemoRandom& random, const QString& email, const QString& challenge);

}  // namespace orv::demo

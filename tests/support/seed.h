#pragma once

#include <QRandomGenerator>
#include <QtGlobal>

namespace orv::test {

/// Another one for each run, printed; that of the environment when it names one, to see a run again.
inline quint32 printedSeed() {
  bool given = false;
  quint32 seed = qEnvironmentVariable("ORVELLA_SEED").toUInt(&given);
  if (!given) seed = QRandomGenerator::global()->generate();
  qInfo("ORVELLA_SEED=%u repeats this run", seed);
  return seed;
}

}  // namespace orv::test

#pragma once

#include <QByteArray>
#include <QtGlobal>
#include <cstdio>
#include <cstdlib>

/// libFuzzer's way in, which every target defines.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, size_t size);

namespace orv::fuzz {

inline QByteArray input(const unsigned char* bytes, size_t size) {
  return {reinterpret_cast<const char*>(bytes), qsizetype(size)};
}

/// What must hold whatever comes in.
inline void require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "does not hold: %s\n", what);
  std::abort();
}

/// The log of a million refusals helps nobody, and costs most of the time.
inline void beQuiet() {
  static const auto previous = qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
  Q_UNUSED(previous)
}

}  // namespace orv::fuzz

#pragma once

#include <QUrl>

namespace orv {

/// The person's web browser and mail program.
class Browser {
 public:
  virtual ~Browser() = default;
  /// False when nothing could be opened. Only http, https and mailto are.
  virtual bool open(const QUrl& url) = 0;
};

}  // namespace orv

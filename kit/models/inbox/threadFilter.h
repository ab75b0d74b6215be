#pragma once

#include <optional>

#include "kit/api/APIRequest.h"

namespace orv {

/// Which conversations a list shows.
struct ThreadFilter {
  enum class Tab { all, unread, archived };
  /// Beside the labels themselves: threads with a draft waiting, and threads without a label.
  static constexpr QLatin1String drafts{"drafts"}, unlabelled{"none"};

  Tab tab = Tab::all;
  QString query;
  std::optional<QString> label;
  /// A mailbox's id.
  std::optional<QString> mailbox;

  /// As the service is asked for a page of them.
  QList<QueryItem> queryItems() const;
  bool operator==(const ThreadFilter&) const = default;
};

}  // namespace orv

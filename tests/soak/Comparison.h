#pragma once

#include "tests/soak/SoakClient.h"

namespace orv::soak {

/// Goes through every page of the client with a second one beside it, which has just been started and so shows what the
/// service holds: each field of each page must be the same in both.
///
/// What the client is compared by is what it shows after the person has put their own things away: filters, ticks,
/// dialogs, texts that are not saved. Those are theirs, and the service knows nothing of them.
class Comparison {
 public:
  /// `rest` runs the event loop until nothing is under way.
  Comparison(SoakClient& shown, SoakClient& held, std::function<void()> rest)
      : m_shown(shown), m_held(held), m_rest(std::move(rest)) {}

  /// A line for each difference, beginning with the page's name; of all pages or one. Where they are `refreshing`, the
  /// person presses "Refresh" on each before it is compared.
  QStringList run(bool refreshing, std::optional<Page> only = {});

  int pages() const { return m_pages; }
  qsizetype fields() const { return m_fields; }

 private:
  void comparePages(const QString& workspace);
  void compare(const QString& name, const std::function<void(Router&)>& go);
  void throwAway(const QString& workspace);
  void putAway();
  void ensureLoaded();
  /// The same conversation, draft, email of a sequence, and database.
  void openAlike();
  /// The same filters, the same sorting, as many rows.
  void align();
  void askAlike();
  void readAsFar();
  void seeAll();

  SoakClient& m_shown;
  SoakClient& m_held;
  std::function<void()> m_rest;
  bool m_refreshing = false;
  std::optional<Page> m_only;
  QStringList m_lines;
  int m_pages = 0;
  qsizetype m_fields = 0;
};

}  // namespace orv::soak

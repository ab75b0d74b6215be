#pragma once

#include <functional>
#include <optional>

#include "kit/api/APIError.h"
#include "kit/async/TaskScope.h"

namespace orv {

/// The pages of a list after its first, one at a time, as the view comes near its end; whoever has the list puts them
/// into it. A page has `items` and, unless it is the last, `nextCursor`.
template <class Page>
class CursorPages final {
 public:
  using Loader = std::function<Task<Page>(QString cursor)>;
  using Take = std::function<void(const Page&)>;

  /// `append` gets each further page. `changed` is called when any of the answers below is another one.
  CursorPages(Loader loader, Take append, std::function<void()> changed)
      : m_loader(std::move(loader)), m_append(std::move(append)), m_changed(std::move(changed)) {}

  bool hasMore() const { return m_cursor.has_value(); }
  bool loading() const { return m_loading; }
  /// The last try failed; the next one is the person's.
  bool failed() const { return m_failed; }

  /// The first page of another list has come, or none; what was under way belongs to the list before.
  void start(std::optional<QString> cursor) {
    m_load.cancel();
    m_cursor = std::move(cursor);
    set(false, false);
  }

  /// The first page of the same list has come again. Reads on until as many items as `wanted` have come again, and
  /// gives them all to `replace`, so that the view keeps its place. There is no next page meanwhile, nor after a
  /// failure: it would have to go on from a place that nobody knows.
  void startAgain(Page first, qsizetype wanted, Take replace) {
    m_cursor.reset();
    set(true, false);
    m_load.start(readAgain(std::move(first), wanted, std::move(replace)));
  }

  void loadMore() {
    if (!hasMore() || m_loading) return;
    set(true, false);
    m_load.start(readMore(*m_cursor));
  }

  /// Items were taken out of the list: a second reading that began before would bring them back.
  void itemsLeft() {
    if (!m_loading || hasMore()) return;
    m_load.cancel();
    set(false, true);
  }

  void cancel() { start({}); }

 private:
  Task<void> readMore(QString cursor) {
    try {
      const Page page = co_await m_loader(cursor);
      m_cursor = page.nextCursor;
      // Who takes the page may ask for the next one at once.
      m_loading = false;
      m_append(page);
      m_changed();
    } catch (const APIError&) {
      set(false, true);
    }
  }

  Task<void> readAgain(Page read, qsizetype wanted, Take replace) {
    try {
      while (read.nextCursor && read.items.size() < wanted) {
        const Page page = co_await m_loader(*read.nextCursor);
        read.items += page.items;
        read.nextCursor = page.nextCursor;
      }
      m_cursor = read.nextCursor;
      m_loading = false;
      replace(read);
      m_changed();
    } catch (const APIError&) {
      set(false, true);
    }
  }

  void set(bool loading, bool failed) {
    m_loading = loading;
    m_failed = failed;
    m_changed();
  }

  Loader m_loader;
  Take m_append;
  std::function<void()> m_changed;
  TaskSlot m_load;
  std::optional<QString> m_cursor;
  bool m_loading = false;
  bool m_failed = false;
};

}  // namespace orv

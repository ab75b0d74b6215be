#pragma once

#include <functional>

#include "app/shell/Resource.h"

namespace orv {

/// The pages after the first of a list that a Resource loads, one at a time, as the view comes near its end. A page has
/// `items` and, unless it is the last, `nextCursor`.
///
/// A load of the list makes it another list: the page under way, whose cursor belongs to the one before, is let go.
template <class Page>
class CursorPages final : public QObject {
 public:
  using Loader = std::function<Task<Page>(QString cursor)>;

  /// `changed` is called when any of the answers below is another one.
  CursorPages(Resource<Page>& list, Loader loader, std::function<void()> changed)
      : m_list(list), m_loader(std::move(loader)), m_changed(std::move(changed)) {
    connect(&list, &ResourceBase::changed, this, [this] {
      if (m_list.refreshing() || m_list.stateName() == ResourceBase::State::Loading) cancel();
    });
  }

  bool hasMore() const { return m_list.value() && m_list.value()->nextCursor && m_list.hasContent(); }
  bool loading() const { return m_loading; }
  /// The last try failed; the next one is the person's.
  bool failed() const { return m_failed; }

  void loadMore() {
    if (!hasMore() || loading() || m_list.refreshing()) return;
    m_failed = false;
    m_loading = true;
    m_changed();
    m_load.start(run(*m_list.value()->nextCursor));
  }

  void cancel() {
    m_load.cancel();
    const bool wasLoading = std::exchange(m_loading, false), hadFailed = std::exchange(m_failed, false);
    if (wasLoading || hadFailed) m_changed();
  }

 private:
  Task<void> run(QString cursor) {
    try {
      Page page = co_await m_loader(cursor);
      m_loading = false;
      m_list.update([&page](Page& list) {
        list.items.append(std::move(page.items));
        list.nextCursor = page.nextCursor;
      });
    } catch (const APIError& error) {
      m_loading = false;
      m_failed = !error.is(APIError::Kind::cancelled);
    }
    m_changed();
  }

  Resource<Page>& m_list;
  Loader m_loader;
  std::function<void()> m_changed;
  TaskSlot m_load;
  bool m_loading = false;
  bool m_failed = false;
};

}  // namespace orv

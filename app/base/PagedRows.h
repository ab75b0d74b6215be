#pragma once

#include <QHash>
#include <QSet>
#include <QString>
#include <algorithm>
#include <optional>
#include <vector>

namespace orv {

/// The rows of a list as the service gave them, page by page, each page with the cursor that it was asked for with, and
/// the place of every row by its id. An id is there once: where a later answer has it.
template <class Row>
class PagedRows {
 public:
  /// What a page brought that was not there before.
  struct News {
    enum class Kind {
      /// The ids are where they were; `rows` are those with other values.
      values,
      /// `rows` stand behind all the others.
      appended,
      /// Rows have come, gone or moved.
      places
    };
    Kind kind = Kind::values;
    std::vector<Row> rows = {};
  };

  size_t pages() const { return m_pages.size(); }
  qsizetype size() const { return m_places.size(); }
  bool hasMore() const { return m_next.has_value() || further() < pages(); }
  /// The page that comes next: one that waits without rows at the end, or the one after the last.
  size_t further() const { return pages() > 0 ? std::max<size_t>(sinceEmpty(pages()), 1) : 0; }
  /// Where to ask for the page, which may be the one after the last.
  std::optional<QString> cursor(size_t page) const { return page < pages() ? m_pages[page].cursor : m_next; }

  bool isStale(size_t page) const { return m_pages[page].isStale; }
  void markStale(size_t page) { m_pages[page].isStale = true; }
  void markStale() {
    for (Page& page : m_pages) page.isStale = true;
  }
  /// Nobody sees a row of a page that has none, and so nobody would have it read. Of such pages right before this one
  /// the first, as far as they wait to be read; or else this one.
  size_t sinceEmpty(size_t page) const {
    while (page > 0 && m_pages[page - 1].isStale && m_pages[page - 1].rows.empty()) --page;
    return page;
  }
  std::optional<size_t> firstStale() const {
    const auto stale = std::ranges::find(m_pages, true, &Page::isStale);
    return stale == m_pages.end() ? std::nullopt : std::optional(size_t(stale - m_pages.begin()));
  }

  std::optional<size_t> pageOf(const QString& id) const {
    const auto place = m_places.constFind(id);
    return place == m_places.cend() ? std::nullopt : std::optional(*place);
  }
  const Row* find(const QString& id) const {
    const auto page = pageOf(id);
    return page ? &*std::ranges::find(m_pages[*page].rows, id, &Row::id) : nullptr;
  }

  /// The page has been read. What is no longer in it may be in the next one by now: with `keepsLost` it waits there, to
  /// be read again.
  News take(size_t page, std::vector<Row> rows, std::optional<QString> next, bool keepsLost) {
    if (page == m_pages.size()) m_pages.push_back({std::exchange(m_next, {}), {}, false});
    // A service that gives the same place again would be asked for ever.
    if (next == m_pages[page].cursor) next.reset();
    dropRepeated(rows);
    m_pages[page].isStale = false;
    std::vector<Row> lost;
    News news = hasTheSameIds(page, rows) ? takeValues(page, rows) : takePlaces(page, std::move(rows), lost);
    if (link(page, next, std::move(lost), keepsLost)) news = {News::Kind::places};
    return news;
  }

  /// False when no row has its id.
  bool put(Row row) {
    const auto page = pageOf(row.id);
    if (!page) return false;
    auto& rows = m_pages[*page].rows;
    const auto found = std::ranges::find(rows, row.id, &Row::id);
    *found = std::move(row);
    return true;
  }

  void remove(const QSet<QString>& ids) {
    QSet<size_t> touched;
    for (const QString& id : ids)
      if (const auto page = pageOf(id)) {
        touched.insert(*page);
        m_places.remove(id);
      }
    for (const size_t page : touched)
      std::erase_if(m_pages[page].rows, [&ids](const Row& row) { return ids.contains(row.id); });
  }

  void clear() {
    m_pages.clear();
    m_places.clear();
    m_next.reset();
  }

  /// In the service's order.
  template <class Take>
  void each(Take take) const {
    for (const Page& page : m_pages)
      for (const Row& row : page.rows) take(row);
  }

 private:
  struct Page {
    std::optional<QString> cursor;
    std::vector<Row> rows;
    /// The service may have something else by now.
    bool isStale = false;
  };

  static void dropRepeated(std::vector<Row>& rows) {
    QSet<QString> seen;
    std::erase_if(rows, [&seen](const Row& row) {
      const auto before = seen.size();
      seen.insert(row.id);
      return seen.size() == before;
    });
  }

  bool hasTheSameIds(size_t page, const std::vector<Row>& rows) const {
    return std::ranges::equal(m_pages[page].rows, rows, {}, &Row::id, &Row::id);
  }

  News takeValues(size_t page, std::vector<Row>& rows) {
    News news;
    for (size_t row = 0; row < rows.size(); ++row) {
      Row& known = m_pages[page].rows[row];
      if (known == rows[row]) continue;
      known = std::move(rows[row]);
      news.rows.push_back(known);
    }
    return news;
  }

  News takePlaces(size_t page, std::vector<Row> rows, std::vector<Row>& lost) {
    const bool isNew = m_pages[page].rows.empty() && page + 1 == m_pages.size();
    bool anyMoved = false;
    lost = std::exchange(m_pages[page].rows, {});
    QSet<QString> ids;
    for (const Row& row : rows) {
      ids.insert(row.id);
      const auto place = m_places.constFind(row.id);
      if (place != m_places.cend() && *place != page) {
        std::erase_if(m_pages[*place].rows, [&row](const Row& other) { return other.id == row.id; });
        anyMoved = true;
      }
      m_places.insert(row.id, page);
    }
    std::erase_if(lost, [&ids](const Row& row) { return ids.contains(row.id); });
    m_pages[page].rows = std::move(rows);
    if (isNew && !anyMoved) return {News::Kind::appended, m_pages[page].rows};
    return {News::Kind::places};
  }

  /// Says where the next page begins; true when rows after this one have gone.
  bool link(size_t page, const std::optional<QString>& next, std::vector<Row> lost, bool keepsLost) {
    const bool isLast = page + 1 == m_pages.size();
    if (!next) {
      const bool anyGone = !isLast;
      forget(lost);
      for (size_t after = page + 1; after < m_pages.size(); ++after) forget(m_pages[after].rows);
      m_pages.resize(page + 1);
      m_next.reset();
      return anyGone;
    }
    const bool waits = keepsLost && !lost.empty();
    if (waits && isLast) {
      m_pages.emplace_back();
      m_next.reset();
    }
    if (page + 1 < m_pages.size())
      m_pages[page + 1].cursor = next;
    else
      m_next = next;
    if (!waits) {
      forget(lost);
      return false;
    }
    Page& waiting = m_pages[page + 1];
    waiting.isStale = true;
    for (const Row& row : lost) m_places.insert(row.id, page + 1);
    waiting.rows.insert(waiting.rows.begin(), lost.begin(), lost.end());
    return false;
  }

  void forget(const std::vector<Row>& rows) {
    for (const Row& row : rows) m_places.remove(row.id);
  }

  std::vector<Page> m_pages;
  QHash<QString, size_t> m_places;
  /// Of the page after the last.
  std::optional<QString> m_next;
};

}  // namespace orv

#pragma once

#include "app/base/PagedListBase.h"
#include "app/base/PagedRows.h"
#include "app/base/RowFields.h"

namespace orv {

/// Which part of a list a page is.
struct PageRequest {
  qint64 limit;
  std::optional<QString> cursor;
};

/// How a list is read and shown.
template <class Row, class Item>
struct PagedListOptions {
  /// Title of the message when reading again fails.
  QString failed = {};
  qint64 first = 200;
  qint64 further = 200;
  /// Every page is read, one after another, and shown as it comes.
  bool whole = false;
  bool loadsByItself = true;
  /// The list is that of the archive.
  bool isArchive = false;
  /// How a row looks; without it, it is made of the item.
  std::function<Row(const Item&)> row = {};
  /// Which of the rows are shown; without it, all of them. See arrange().
  std::function<bool(const Row&)> matches = {};
  /// What a page has no longer waits in the next one until that is read again. A list that is read whole does so
  /// anyway; another one wants it where new rows push the others down under the person's eyes.
  bool keepsLost = false;
};

/// A list that is read page by page: the pages and where each begins, an index by id, the rows for the table. A page
/// has `items` and, unless it is the last, `nextCursor`; whatever else it says stands in head().
///
/// Reading, changing and taking out may cross each other: of each row, what was asked for last counts.
template <class Page, class Model>
class PagedList final : public PagedListBase {
 public:
  using Row = typename Model::Row;
  using Item = std::decay_t<decltype(std::declval<const Page&>().items.first())>;
  using Loader = std::function<Task<Page>(PageRequest)>;
  using Options = PagedListOptions<Row, Item>;
  using Less = std::function<bool(const Row&, const Row&)>;

  PagedList(Store& owner, Loader loader, Options options = {})
      : PagedListBase(owner, options.failed, options.loadsByItself, options.whole),
        m_loader(std::move(loader)),
        m_options(std::move(options)) {
    if constexpr (WholeRecord<Item>) {
      Changes& changes = owner.context().changes();
      if (m_options.isArchive)
        changes.watch<Archived<Item>>(this, [this](const Change<Archived<Item>>& change) { follow(change); });
      else
        changes.watch<Item>(this, [this](const Change<Item>& change) { follow(change); });
    }
  }

  Model* rows() override { return &m_model; }
  int shownCount() const override { return m_model.rowCount(); }
  int readCount() const override { return int(m_rows.size()); }
  bool contains(const QString& id) const override { return m_rows.pageOf(id).has_value(); }
  const Row* find(const QString& id) const { return m_rows.find(id); }
  /// Calls `take` for every row read so far, in the service's order.
  template <class Take>
  void each(Take take) const {
    m_rows.each(std::move(take));
  }
  QStringList shownIds() const override {
    QStringList ids;
    ids.reserve(m_model.rowCount());
    for (const Row& row : m_model.records()) ids.append(row.id);
    return ids;
  }

  /// What the newest answer says beside its items; null before the first.
  const Page* head() const { return m_head ? &*m_head : nullptr; }
  /// What is shown is the answer to the question before.
  bool asksAnew() const { return m_asksAnew; }
  /// What is known of it otherwise, until a page says it anew.
  void amendHead(const std::function<void(Page&)>& amend) {
    if (!m_head) return;
    amend(*m_head);
    Q_EMIT changed();
  }

  /// What matches is another matter than before.
  void arrange() {
    nextQuestion();
    m_model.replace(arranged());
    Q_EMIT changed();
  }
  /// None is the service's own order.
  void setOrder(Less less) {
    m_less = std::move(less);
    arrange();
  }

  /// The record is this by now, wherever it stands; false when it has not been read.
  bool put(const Item& item) {
    if (!take(item)) return false;
    rowsChanged();
    return true;
  }

  /// The records are no longer in the list.
  void takeOut(const QStringList& ids) {
    forget(ids);
    m_model.update(arranged());
    rowsChanged();
  }

  /// The service has something else for this record by now, nobody knows what.
  void recordStale(const QString& id) {
    const auto page = m_rows.pageOf(id);
    if (!page) return;
    m_rows.markStale(*page);
    readOn();
  }

 private:
  size_t pageCount() const override { return m_rows.pages(); }
  size_t furtherPage() const override { return m_rows.further(); }
  bool hasMore() const override { return m_rows.hasMore(); }
  void markAllStale() override { m_rows.markStale(); }

  std::optional<size_t> stalePage() const override {
    std::optional<size_t> first = m_rows.firstStale();
    if (m_isWhole || !first) return first;
    first.reset();
    const int last = std::min(m_lastSeen, m_model.rowCount() - 1);
    for (int row = m_firstSeen; row <= last; ++row) {
      auto page = m_rows.pageOf(m_model.records()[size_t(row)].id);
      // What a page without rows would bring stands before this one.
      if (page) page = m_rows.sinceEmpty(*page);
      if (page && m_rows.isStale(*page)) first = std::min(first.value_or(*page), *page);
    }
    // While nothing is seen, the beginning is what somebody would see.
    if (m_model.rowCount() == 0 && m_rows.isStale(0)) first = 0;
    return first;
  }

  void dropRows() override {
    m_rows.clear();
    m_head.reset();
    m_changed.clear();
    m_model.replace({});
  }

  Task<void> readPage(size_t page) override {
    const qint64 generation = m_generation;
    const Stamp asked = m_owner.context().changes().stamp();
    const auto cursor = m_asksAnew ? std::nullopt : m_rows.cursor(page);
    Page answer = co_await m_loader({page == 0 ? m_options.first : m_options.further, cursor});
    if (generation == m_generation) take(page, std::move(answer), asked);
  }

  void take(size_t page, Page answer, Stamp sent) {
    const Stamp asked = askedFor(answer, sent);
    reconcile(answer, asked);
    if (m_asksAnew) {
      m_rows.clear();
      m_changed.clear();
      m_head.reset();
    }
    auto news = m_rows.take(page, rowsOf(answer, asked), answer.nextCursor, m_isWhole || m_options.keepsLost);
    using Kind = typename PagedRows<Row>::News::Kind;
    if (std::exchange(m_asksAnew, false))
      m_model.replace(arranged());
    else if (news.kind == Kind::appended && !m_less)
      m_model.append(matching(std::move(news.rows)));
    else if (news.kind != Kind::values || !show(news.rows))
      m_model.update(arranged());
    takeHead(page, std::move(answer));
    pageTaken();
  }

  /// A part of what the service gave in one piece knows when that was asked for.
  static Stamp askedFor(const Page& page, Stamp now) {
    if constexpr (requires { page.asked; })
      return page.asked.value_or(now);
    else
      return now;
  }

  void reconcile(Page& answer, Stamp asked) {
    if constexpr (SharedRecord<Item>) {
      QList<Item> standing;
      if constexpr (requires(const Row& row) { row.record(); })
        for (const Item& item : answer.items)
          if (const Row* row = m_rows.find(item.id)) standing.append(row->record());
      using Record = typename Item::Record;
      m_isTelling = true;
      if (m_options.isArchive)
        m_owner.context().changes().template reconcile<Archived<Record>>(answer.items, &standing, asked);
      else
        m_owner.context().changes().template reconcile<Record>(answer.items, &standing, asked);
      m_isTelling = false;
    }
  }

  /// Rows that stand already are kept, with what was prepared of them.
  std::vector<Row> rowsOf(const Page& answer, Stamp asked) {
    std::vector<Row> rows;
    rows.reserve(size_t(answer.items.size()));
    for (const Item& item : answer.items) {
      if constexpr (requires(const Row& row) { row.record() == item; }) {
        const Row* known = m_rows.find(item.id);
        if (known && known->record() == item) {
          rows.push_back(*known);
          continue;
        }
      }
      rows.push_back(made(item));
    }
    if (m_changed.isEmpty()) return rows;
    std::erase_if(rows, [&](Row& row) {
      const auto changed = m_changed.constFind(row.id);
      if (changed == m_changed.cend()) return false;
      if (*changed < asked) {
        m_changed.erase(changed);
        return false;
      }
      const Row* known = m_rows.find(row.id);
      if (known) row = *known;
      return !known;
    });
    return rows;
  }

  Row made(const Item& item) const {
    if constexpr (std::is_constructible_v<Row, const Item&>)
      return m_options.row ? m_options.row(item) : Row(item);
    else
      return m_options.row(item);
  }

  void takeHead(size_t page, Page answer) {
    answer.items.clear();
    if constexpr (boost::describe::has_describe_members<Page>::value)
      if (page > 0 && m_head) keepSaid(answer);
    m_head = std::move(answer);
  }

  /// Not every page says how many there are: the first one that does is believed, until the beginning is read again.
  void keepSaid(Page& answer) const {
    auto cursor = std::move(answer.nextCursor);
    boost::mp11::mp_for_each<RowMembers<Page>>([&](auto member) {
      auto& said = answer.*member.pointer;
      const auto& known = (*m_head).*member.pointer;
      if constexpr (requires { known.has_value(); })
        if (known) said = known;
    });
    answer.nextCursor = std::move(cursor);
  }

  std::vector<Row> matching(std::vector<Row> rows) const {
    if (m_options.matches) std::erase_if(rows, [this](const Row& row) { return !m_options.matches(row); });
    return rows;
  }

  std::vector<Row> arranged() const {
    std::vector<Row> rows;
    rows.reserve(size_t(m_rows.size()));
    m_rows.each([&](const Row& row) {
      if (!m_options.matches || m_options.matches(row)) rows.push_back(row);
    });
    if (m_less) std::ranges::stable_sort(rows, m_less);
    return rows;
  }

  /// Shows new values of rows; false when one of them now belongs elsewhere.
  bool show(const std::vector<Row>& rows) {
    for (const Row& row : rows)
      if ((m_model.rowOf(row.id) >= 0) != (!m_options.matches || m_options.matches(row))) return false;
    m_model.put(rows);
    return !m_less || std::ranges::all_of(rows, [this](const Row& row) { return isInOrder(m_model.rowOf(row.id)); });
  }

  bool isInOrder(int row) const {
    const auto& shown = m_model.records();
    const auto at = size_t(row);
    return row < 0 || ((at == 0 || !m_less(shown[at], shown[at - 1])) &&
                       (at + 1 == shown.size() || !m_less(shown[at + 1], shown[at])));
  }

  bool take(const Item& item) {
    Row row = made(item);
    if (!contains(row.id)) return false;
    noteChange(row.id);
    m_rows.put(row);
    if (!show({row})) tellSoon(true);
    return true;
  }

  void forget(const QStringList& ids) {
    for (const QString& id : ids) noteChange(id);
    m_rows.remove(QSet<QString>(ids.begin(), ids.end()));
  }

  /// News of many records may come in one turn of the event loop; they are arranged and told of once.
  void tellSoon(bool arranges) {
    m_arrangesSoon |= arranges;
    if (std::exchange(m_tellsSoon, true)) return;
    QMetaObject::invokeMethod(
        this,
        [this] {
          m_tellsSoon = false;
          if (std::exchange(m_arrangesSoon, false)) m_model.update(arranged());
          rowsChanged();
        },
        Qt::QueuedConnection);
  }

  /// A reading that was asked for before knows nothing of it.
  void noteChange(const QString& id) { m_changed.insert(id, m_owner.context().changes().stamp()); }

  template <class Record>
  void follow(const Change<Record>& change) {
    using Kind = typename Change<Record>::Kind;
    if (!isAsked() || m_isTelling) return;
    if (change.kind == Kind::gone) {
      forget({change.id});
      return tellSoon(true);
    }
    if (change.kind == Kind::stale) return change.id.isEmpty() ? markStale() : recordStale(change.id);
    if constexpr (std::is_same_v<Record, Item>) {
      if (take(*change.record)) return tellSoon(false);
      // Somebody here made or restored it; where it stands only the service knows.
      if (change.acted && m_isWhole) markStale();
    }
  }

  Loader m_loader;
  Options m_options;
  Less m_less;
  PagedRows<Row> m_rows;
  Model m_model;
  std::optional<Page> m_head;
  QHash<QString, Stamp> m_changed;
  bool m_tellsSoon = false;
  bool m_arrangesSoon = false;
};

}  // namespace orv

#include "app/base/PagedListBase.h"

namespace orv {

PagedListBase::PagedListBase(Store& owner, QString failed, bool loadsByItself, bool isWhole)
    : ResourceBase(owner, std::move(failed), loadsByItself), m_isWhole(isWhole) {
  connect(&owner.context(), &WorkspaceContext::reachable, this, [this] {
    if (m_moreFailed) loadMore();
  });
}

void PagedListBase::load() {
  m_isAsked = true;
  m_isStale = m_isHalted = m_moreFailed = false;
  markAllStale();
  start();
}

void PagedListBase::ask() {
  m_asksAnew = true;
  m_wantsMore = false;
  ++m_question;
  load();
}

void PagedListBase::loadMore() {
  if (m_asksAnew || !(hasMore() || m_moreFailed)) return;
  m_wantsMore = true;
  m_isHalted = m_moreFailed = false;
  // Who is reading goes on with it.
  if (!m_isReading) start();
}

void PagedListBase::see(int first, int last) {
  m_firstSeen = first;
  m_lastSeen = last;
  readOn();
}

void PagedListBase::readOn() {
  if (isAsked() && !m_isReading && !m_isHalted && !m_moreFailed && isOnScreen() && nextPage()) start();
}

bool PagedListBase::hasContent() const {
  return m_state == State::Ready || (m_state == State::Offline && pageCount() > 0);
}

QString PagedListBase::message() const { return m_state == State::Error ? m_error->message() : QString(); }

void PagedListBase::cancel() {
  m_isReading = m_readsFurther = m_wantsMore = false;
  ResourceBase::cancel();
}

void PagedListBase::start() { m_load.start(read(++m_generation)); }

Task<void> PagedListBase::read(qint64 generation) {
  for (;;) {
    const auto page = nextPage();
    if (!page) {
      rest();
      // Whoever was told may want more.
      if (generation != m_generation || !nextPage()) co_return;
      continue;
    }
    begin(*page);
    if (generation != m_generation) co_return;
    try {
      co_await readPage(*page);
    } catch (const APIError& error) {
      if (generation == m_generation) fail(*page, error);
      co_return;
    }
    if (generation != m_generation) co_return;
  }
}

std::optional<size_t> PagedListBase::nextPage() const {
  if (m_asksAnew) return 0;
  if (const auto stale = stalePage()) return stale;
  if (hasMore() && (m_isWhole || m_wantsMore || readCount() == 0)) return furtherPage();
  return std::nullopt;
}

void PagedListBase::begin(size_t page) {
  m_isReading = true;
  m_readsFurther = page > 0 && page == furtherPage();
  const bool showsSomething = hasContent() || m_state == State::Empty;
  m_refreshing = showsSomething && !m_readsFurther;
  if (!showsSomething) m_state = State::Loading;
  Q_EMIT changed();
}

void PagedListBase::pageTaken() {
  m_error.reset();
  // What somebody wanted has come; the next page is another wish.
  if (std::exchange(m_readsFurther, false)) m_wantsMore = false;
  m_state = State::Ready;
  m_loadedAt = m_owner.context().services().clock.now();
  m_owner.context().cameOnline();
  rowsChanged();
}

void PagedListBase::rowsChanged() {
  const bool isEmpty = m_state == State::Ready && readCount() == 0;
  // A list that is not read to its end may yet have rows.
  if (isEmpty && (m_isReading || !hasMore())) m_state = hasMore() ? State::Loading : State::Empty;
  if (m_state == State::Empty && readCount() > 0) m_state = State::Ready;
  Q_EMIT valueChanged();
  Q_EMIT changed();
}

void PagedListBase::rest() {
  m_isReading = m_readsFurther = m_wantsMore = m_refreshing = false;
  Q_EMIT changed();
  Q_EMIT rested();
}

void PagedListBase::fail(size_t page, const APIError& error) {
  const bool isOffline = error.is(APIError::Kind::offline), isCancelled = error.is(APIError::Kind::cancelled);
  const bool isFirst = m_asksAnew, isFurther = page == furtherPage() || (m_isWhole && page > 0);
  m_isReading = m_readsFurther = m_wantsMore = m_refreshing = false;
  if (page < furtherPage()) m_isStale = true;
  if (isOffline) m_owner.context().wentOffline();
  if (isCancelled) {
    Q_EMIT changed();
    return;
  }
  if (isFirst) {
    dropRows();
    m_error = error;
    m_state = isOffline ? State::Offline : State::Error;
    Q_EMIT valueChanged();
  } else if (isFurther) {
    m_moreFailed = true;
  } else {
    m_isHalted = true;
    if (isOffline) m_state = State::Offline;
  }
  Q_EMIT changed();
  if (!isFirst && !isFurther && !isOffline) tellRefreshFailed(error);
}

}  // namespace orv

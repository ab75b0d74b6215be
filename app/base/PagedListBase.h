#pragma once

#include "app/base/ListModel.h"
#include "app/base/Resource.h"

namespace orv {

/// What QML reads of a PagedList, whatever it holds; also when which page is read.
///
/// One page is read at a time: first those that somebody sees and that are no longer what the service has, then the
/// next one. A page that nobody sees is read again when it is scrolled to, so that reading again after an action costs
/// what the screen needs, however far somebody has scrolled. A list that is read whole goes on by itself.
class PagedListBase : public ResourceBase {
  Q_OBJECT
  Q_PROPERTY(orv::ListModel* rows READ rows CONSTANT)
  Q_PROPERTY(QString question READ question NOTIFY changed)
  Q_PROPERTY(int readCount READ readCount NOTIFY changed)
  Q_PROPERTY(bool canLoadMore READ canLoadMore NOTIFY changed)
  Q_PROPERTY(bool loadingMore READ loadingMore NOTIFY changed)
  Q_PROPERTY(bool moreFailed READ moreFailed NOTIFY changed)

 public:
  PagedListBase(Store& owner, QString failed, bool loadsByItself, bool isWhole);

  /// What is shown: the rows read so far that match, in their order.
  virtual ListModel* rows() = 0;
  virtual QStringList shownIds() const = 0;
  virtual int shownCount() const = 0;
  /// Among the rows read so far, shown or not.
  virtual bool contains(const QString& id) const = 0;
  virtual int readCount() const = 0;

  /// Changes with whatever makes the rows the answer to another question.
  QString question() const { return QString::number(m_question); }
  bool canLoadMore() const { return hasMore() && !m_asksAnew; }
  bool loadingMore() const { return m_wantsMore || (m_readsFurther && !m_asksAnew); }
  /// The next page could not be read; loadMore() tries again.
  bool moreFailed() const { return m_moreFailed; }

  /// Reads again what is shown, leaving it there meanwhile.
  void load() override;
  /// The question is another one. What is shown stays until the answer comes, but not beyond a failure.
  void ask();
  /// The next page, or what could not be read.
  Q_INVOKABLE void loadMore();
  /// A view shows these of the rows.
  Q_INVOKABLE void see(int first, int last);

  State stateName() const override { return m_state; }
  bool hasContent() const override;
  QString message() const override;
  void cancel() override;

 Q_SIGNALS:
  /// A reading has ended, and nothing is known to be left to read.
  void rested();

 protected:
  virtual size_t pageCount() const = 0;
  /// The one that is read when more is wanted.
  virtual size_t furtherPage() const = 0;
  virtual bool hasMore() const = 0;
  /// Of those that are seen or, in a list that is read whole, of all.
  virtual std::optional<size_t> stalePage() const = 0;
  virtual void markAllStale() = 0;
  virtual void dropRows() = 0;
  virtual Task<void> readPage(size_t page) = 0;

  void pageTaken();
  /// Rows have changed, by a page that was taken or otherwise.
  void rowsChanged();
  /// Reads what is stale among what is seen, unless that has just failed.
  void readOn();
  void nextQuestion() { ++m_question; }

  const bool m_isWhole;
  bool m_asksAnew = true;
  int m_firstSeen = 0;
  int m_lastSeen = 0;

 private:
  void start();
  Task<void> read(qint64 generation);
  std::optional<size_t> nextPage() const;
  void begin(size_t page);
  void rest();
  void fail(size_t page, const APIError& error);

  State m_state = State::Loading;
  std::optional<APIError> m_error;
  bool m_isReading = false;
  /// What is read comes behind all that has been read.
  bool m_readsFurther = false;
  bool m_wantsMore = false;
  bool m_moreFailed = false;
  /// Reading again failed: it waits until somebody wants it.
  bool m_isHalted = false;
  int m_question = 0;
};

}  // namespace orv

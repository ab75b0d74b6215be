#pragma once

#include <QSet>
#include <map>
#include <memory>

#include "app/base/Area.h"
#include "app/base/StoreCache.h"
#include "app/base/shownName.h"

namespace orv {

/// One opened workspace: the stores of its areas.
class WorkspaceSession final : public QObject, public WorkspaceStores {
  Q_OBJECT
  Q_PROPERTY(QString slug READ slug CONSTANT)
  Q_PROPERTY(QString name READ name NOTIFY workspaceChanged)
  Q_PROPERTY(QString role READ role NOTIFY workspaceChanged)

 public:
  explicit WorkspaceSession(std::shared_ptr<WorkspaceContext> context, QObject* parent = nullptr);
  ~WorkspaceSession() override;

  WorkspaceContext& context() const override { return *m_context; }
  QString slug() const { return m_context->workspace().slug; }
  /// As it stands in titles and sentences.
  QString name() const { return shownName(m_context->workspace().name); }
  QString role() const { return m_context->workspace().role.rawValue; }

  /// Null where no area has a store of that name.
  Store* store(const QString& name) override;
  /// The store of one record of the page, from the page's cache; the first opened goes first.
  Store* item(Page page, const QString& id);
  Store* keptItem(Page page, const QString& id) const override;
  QStringList itemOrder(Page page) const;

  /// By their types, for who knows the area.
  template <class S>
  S* store() {
    return static_cast<S*>(store(nameOf(S::staticMetaObject)));
  }
  template <class S>
  S* item(Page page, const QString& id) {
    return qobject_cast<S*>(item(page, id));
  }

  const QSet<QString>& featuresOff() const { return m_featuresOff; }

  /// Work that the service does not have yet, a sentence for each piece.
  QStringList unsavedWork() const;
  /// Saves what can be saved unasked; true when nothing is left.
  Task<bool> flush();

  /// One of its stores waits for the answer to a change.
  bool isSending() const { return m_context->isSending(); }

  /// Under memory pressure: lets go of what can be loaded again and is not on the screen.
  void trim();
  /// Stops all requests of its stores; nothing of this session is applied any more.
  void close();

 Q_SIGNALS:
  void workspaceChanged();
  /// Nothing is being sent any more.
  void sent();

 private:
  static QString nameOf(const QMetaObject& type);
  StoreCache<Store>* itemsOf(const AreaPage& page);

  std::shared_ptr<WorkspaceContext> m_context;
  /// In the order in which they were made.
  std::vector<std::pair<QString, std::unique_ptr<Store>>> m_stores;
  std::map<Page, StoreCache<Store>> m_items;
  QSet<QString> m_featuresOff;
};

}  // namespace orv

#pragma once

#include <QObject>
#include <QStringList>
#include <vector>

#include "app/base/PageAction.h"
#include "app/base/WorkspaceContext.h"
#include "kit/async/TaskScope.h"

namespace orv {

class ResourceBase;

/// Base of the stores: owns the work in flight and knows its resources and parts, so that loading, closing, what is
/// unsaved and the gate of the person's role follow for all of them alike.
///
/// A store may be let go by code that one of its own tasks runs (the answer that ends the session, say); it is then
/// closed at once and deleted through the event loop.
class Store : public QObject {
  Q_OBJECT
  Q_PROPERTY(bool canWrite READ canWrite NOTIFY roleChanged)

 public:
  /// A part of `whole` is closed, saved and asked for unsaved work with it. The whole owns its parts as members.
  explicit Store(WorkspaceContext& context, Store* whole = nullptr);

  WorkspaceContext& context() const { return m_context; }
  bool canWrite() const { return m_context.canWrite(); }

  /// Loads what is not there yet, or no longer what the service has; called whenever a page shows the store.
  Q_INVOKABLE virtual void ensureLoaded();
  /// Loads again, or for the first time, whatever is loaded by itself or has been asked for.
  Q_INVOKABLE virtual void refresh();

  /// What can be done here or, by its id, with one of the records shown; the person's role is reckoned with.
  QList<PageAction> actions(const QString& record = {});
  /// Those of them that a menu shows.
  Q_INVOKABLE QList<orv::PageAction> menu(const QString& record = {});
  /// Does it, by key; false when it cannot be done now.
  Q_INVOKABLE bool act(const QString& key, const QString& record = {});

  /// What the palette finds by name; foundChanged() says that it is other than before.
  virtual QList<FoundRecord> found() const { return {}; }
  /// Loads what found() reads.
  virtual void ensureFound() {}

  /// Where in the page the person is; moved() says that they went elsewhere in it.
  virtual PagePlace where() const { return {}; }
  virtual void goTo(const PagePlace&) {}
  /// Somebody asked for the page itself: it shows what it begins with.
  virtual void begin() {}
  /// The page is to show this record in itself. What it shows by itself it tells WorkspaceContext::showing().
  virtual void showRecord(const QString& /*id*/) {}

  /// Under memory pressure: lets go of what can be loaded again and is not on the screen.
  virtual void trim() {}

  /// A sentence for each piece of work that the service does not have yet.
  virtual QStringList unsavedWork() const;
  /// Saves what needs no button; true when nothing is left. This object may go while the task waits, which then gives
  /// false.
  virtual Task<bool> flush();

  /// A page shows the store from now on, and no longer.
  Q_INVOKABLE void appear() { ++m_pages; }
  Q_INVOKABLE void disappear();
  bool isShown() const { return m_pages > 0; }
  /// Something in the workspace, maybe this, waits for the answer to a change.
  bool isSending() const { return m_context.isSending(); }

  /// Stops everything in flight; nothing of it is applied any more.
  virtual void close();

  /// Called by resources when they are made.
  void own(ResourceBase& resource) { m_resources.push_back(&resource); }

 Q_SIGNALS:
  void roleChanged();
  /// No page shows it any more.
  void left();
  /// Nothing is being sent any more.
  void sent();
  void moved();
  void foundChanged();

 protected:
  /// The actions, whatever the role. Asked anew each time, so that they speak of how things are.
  virtual QList<PageAction> offered(const QString& record);
  APITransport& api() const { return m_context.api(); }
  Services& services() const { return m_context.services(); }

  TaskScope m_tasks;

 private:
  WorkspaceContext& m_context;
  std::vector<ResourceBase*> m_resources;
  std::vector<Store*> m_parts;
  int m_pages = 0;
};

}  // namespace orv

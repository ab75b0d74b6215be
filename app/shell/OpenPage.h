#pragma once

#include <QPointer>

#include "app/shell/Router.h"
#include "app/shell/WorkspaceSession.h"

namespace orv {

/// The page in front of the person: what shows it, the store behind it, and what can be done on it.
///
/// It follows the router, and tells it where in the page they are, so that the way back leads there.
class OpenPage final : public QObject {
  Q_OBJECT
  Q_PROPERTY(QString view READ view NOTIFY changed)
  Q_PROPERTY(orv::Store* store READ store NOTIFY changed)
  Q_PROPERTY(bool needsRoom READ needsRoom NOTIFY changed)
  Q_PROPERTY(QStringList keys READ keys NOTIFY changed)
  Q_PROPERTY(bool isRecord READ isRecord NOTIFY changed)

 public:
  explicit OpenPage(Router& router, QObject* parent = nullptr);

  /// The open workspace; null when there is none.
  void setSession(WorkspaceSession* session);

  /// Its QML file; empty when its feature is off or no area has the page.
  QString view() const { return m_store ? m_shown.view : QString(); }
  Store* store() const { return m_store; }
  /// It is the page of one record.
  bool isRecord() const { return m_store && !m_shown.item.isEmpty(); }
  /// The sidebar folds to leave it room.
  bool needsRoom() const { return m_needsRoom; }
  /// Keys of its own actions.
  QStringList keys() const;

  QList<PageAction> actions() const;
  /// Does what the key is for.
  Q_INVOKABLE bool press(const QString& keys);

 Q_SIGNALS:
  /// Another page, record or workspace is shown: whoever shows the old one lets go of it.
  void changed();

 private:
  struct Shown {
    QPointer<WorkspaceSession> session;
    Page page = Page::dashboard;
    QString item;
    QString offFeature;
    QString view;
    bool operator==(const Shown&) const = default;
  };

  void follow();
  void show(const Shown& shown);
  void walked(const PagePlace& place);

  Router& m_router;
  QPointer<WorkspaceSession> m_session;
  Shown m_shown;
  QPointer<Store> m_store;
  bool m_needsRoom = false;
  /// The store goes where the person was; that is no move of theirs.
  bool m_walking = false;
};

}  // namespace orv

#pragma once

#include <QAbstractItemModelTester>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include "app/inbox/InboxStore.h"
#include "tests/support/AppFixture.h"

namespace orv::test {

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

inline const auto list = u"GET /inbox/threads"_s, labels = u"GET /reply-labels"_s, campaigns = u"GET /campaigns"_s;
inline QString get(int n) { return u"GET /inbox/threads/t%1"_s.arg(n); }
inline QString patch(int n) { return u"PATCH /inbox/threads/t%1"_s.arg(n); }
inline QString reply(int n) { return u"POST /inbox/threads/t%1/reply"_s.arg(n); }
inline QString id(int n) { return u"t%1"_s.arg(n); }

inline QJsonObject threadOf(int n, const QJsonObject& more = {}) {
  QJsonObject object{{u"id"_s, id(n)},
                     {u"mailboxId"_s, u"m1"_s},
                     {u"mailboxAddress"_s, u"ellen@a.example"_s},
                     {u"contactAddress"_s, u"c%1@b.example"_s.arg(n)},
                     {u"contactName"_s, u"Contact %1"_s.arg(n)},
                     {u"subject"_s, u"Re: Q%1"_s.arg(n)},
                     {u"kind"_s, u"reply"_s},
                     {u"status"_s, u"open"_s},
                     {u"unread"_s, true},
                     {u"messageCount"_s, 1},
                     {u"pendingDrafts"_s, 0},
                     {u"lastMessageAt"_s, u"2026-11-20T09:00:00Z"_s},
                     {u"followupsSent"_s, 0},
                     {u"humanTookOver"_s, false},
                     {u"createdAt"_s, u"2026-11-19T09:00:00Z"_s}};
  for (auto member = more.begin(); member != more.end(); ++member) object.insert(member.key(), member.value());
  return object;
}

inline QJsonObject draft(const QString& draftId, int n, const QString& body, const QString& status = u"pending"_s) {
  QJsonObject object{
      {u"id"_s, draftId}, {u"threadId"_s, id(n)}, {u"kind"_s, u"reply"_s}, {u"body"_s, body}, {u"status"_s, status}};
  if (status != "pending"_L1) object.insert(u"approvedAt"_s, u"2026-11-20T10:00:00Z"_s);
  return object;
}

inline QByteArray json(const QJsonObject& object) { return QJsonDocument(object).toJson(QJsonDocument::Compact); }

inline QByteArray page(const QJsonArray& items, const QString& next = {}) {
  QJsonObject page{{u"items"_s, items},
                   {u"counts"_s, QJsonObject{{u"total"_s, 10}, {u"unread"_s, 5}, {u"drafts"_s, 2}}}};
  if (!next.isEmpty()) page.insert(u"nextCursor"_s, next);
  return json(page);
}

inline QByteArray detailOf(const QJsonObject& thread, const QJsonArray& drafts = {}, const QJsonArray& more = {}) {
  QJsonArray messages{QJsonObject{{u"id"_s, u"m-"_s + thread.value(u"id"_s).toString()},
                                  {u"direction"_s, u"inbound"_s},
                                  {u"state"_s, u"received"_s},
                                  {u"body"_s, u"Yes.\n\nEllen wrote:\n> Shall we?"_s},
                                  {u"kind"_s, u"reply"_s},
                                  {u"at"_s, u"2026-11-20T09:00:00Z"_s}}};
  for (const auto& message : more) messages.append(message);
  return json({{u"thread"_s, thread}, {u"messages"_s, messages}, {u"drafts"_s, drafts}});
}

class FakeDesk final : public Store, public DraftDesk {
 public:
  explicit FakeDesk(WorkspaceContext& context) : Store(context) {}
  void approve(const ReviewDraft& item) override { approved.append(item); }
  void skip(const ReviewDraft& item) override { skipped.append(item.draft.id); }
  bool isDeciding(const QString&) const override { return false; }
  QList<ReviewDraft> approved;
  QStringList skipped;
};

/// The inbox of a workspace with three conversations, its answers given by hand.
class InboxFixture : public QObject {
 protected:
  struct Life {
    AppFixture f;
    Writings writings{*f.context};
    FakeDesk desk{*f.context};
    std::unique_ptr<InboxStore> store = std::make_unique<InboxStore>(*f.context, writings, &desk, nullptr);
    QAbstractItemModelTester tester{store->threads()->list()->rows(),
                                    QAbstractItemModelTester::FailureReportingMode::QtTest};
  };
  std::unique_ptr<Life> life;
  AppFixture* f = nullptr;
  InboxStore* store = nullptr;

  QStringList shown() const { return store->threads()->list()->shownIds(); }
  QJsonObject body() const { return QJsonDocument::fromJson(*f->api.last().request.body).object(); }
  QString toast() const { return f->toasts.count() ? f->toasts.toasts().last().message : QString(); }
  int asked(const QString& label) const {
    int count = 0;
    for (const APICall& call : f->api.sent()) count += call.request.label() == label;
    return count;
  }
  /// Of the last request.
  QString query() const {
    QStringList items;
    for (const QueryItem& item : f->api.last().request.query)
      items.append(item.name + u'=' + item.value.value_or(QString()));
    return items.join(u'&');
  }
  bool isUnread(int n) const { return store->threads()->rows().isUnread(*store->threads()->find(id(n))); }
  void look() {
    store->appear();
    store->threads()->list()->appear();
    f->navigator.open(Page::inbox);
  }
  void load(const QByteArray& first = page({threadOf(1), threadOf(2), threadOf(3)})) {
    for (const QString& label : {list, labels, campaigns}) f->api.expect(label);
    store->ensureLoaded();
    f->api.answer(labels, R"({"items":[{"key":"warm","name":"Warm","tone":"positive"}]})");
    f->api.answer(campaigns, R"({"items":[]})");
    f->api.answer(list, first);
  }
  /// With its reading, and that of the next one.
  void open(int n, const QByteArray& answer, int ahead = 0) {
    f->api.expect(get(n));
    store->open(id(n));
    if (ahead) f->api.expect(get(ahead));
    f->api.answer(get(n), answer);
    if (ahead) f->api.answer(get(ahead), detailOf(threadOf(ahead, {{u"unread"_s, false}})));
  }
  /// One that needs no marking, with nothing behind it in the list.
  void openLast(const QJsonArray& drafts = {}) {
    open(3, detailOf(threadOf(3, {{u"unread"_s, false}, {u"pendingDrafts"_s, drafts.size()}}), drafts));
  }
  void begin() {
    life = std::make_unique<Life>();
    f = &life->f;
    store = life->store.get();
    look();
  }
};

}  // namespace orv::test

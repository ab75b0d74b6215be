#include <QJsonArray>
#include <QJsonDocument>

#include "app/accounts/AccountDetail.h"
#include "app/accounts/AddAccount.h"
#include "tests/app/sweep/SweepStage.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::test {
namespace {

/// An account's page and the dialog that adds others, with what the workspace has beside them.
struct AccountOnShow final : Store {
  explicit AccountOnShow(WorkspaceContext& context) : Store(context) {}
  void ensureLoaded() override { page.ensureLoaded(); }
  void refresh() override { page.refresh(); }
  void close() override {
    page.close();
    actions.close();
    Store::close();
  }
  AccountActions actions{context()};
  AccountDetail page{u"mb1"_s, context(), actions};
  AddAccount adding{context(), actions, this};
};

AccountOnShow& all(SweepStage& s) { return s.the<AccountOnShow>(); }
AccountDetail& page(SweepStage& s) { return all(s).page; }
GoogleConnect& google(SweepStage& s) { return *all(s).adding.google(); }

QJsonObject mailbox(const QJsonObject& changed = {}) {
  QJsonObject box = QJsonDocument::fromJson(sample(u"TrackingDomainCheck"_s))["mailbox"_L1].toObject();
  box.insert(u"status"_s, u"active"_s);
  box.remove(u"archivedAt"_s);
  for (auto member = changed.begin(); member != changed.end(); ++member) box.insert(member.key(), member.value());
  return box;
}
QByteArray after(const QString& status) { return written(mailbox({{u"status"_s, status}, {u"version"_s, 20}})); }
const QStringList required{u"id"_s, u"address"_s, u"warmup"_s};

void arrive(SweepStage& s) {
  s.answers[u"GET /mailboxes/mb1"_s] = written(mailbox());
  s.answers[u"GET /google-workspace"_s] = sample(u"GoogleWorkspaceStatus"_s);
  s.answers[u"POST /google-workspace/directory"_s] =
      sample(u"GoogleDirectory"_s, {{u"code"_s, QJsonValue()}, {u"message"_s, QJsonValue()}});
  s.show<AccountOnShow>();
  page(s).ensureLoaded();
  s.finish();
}

QVariant shown(SweepStage& s) { return QStringList{page(s).address(), page(s).connectionState()}; }
bool busy(SweepStage& s) { return page(s).busy(); }

SweepRow action(const QString& verb, void (AccountActions::*act)(const QString&, const QString&),
                const QString& request, const QByteArray& answer) {
  return {u"AccountActions::"_s + verb,
          arrive,
          [act](SweepStage& s) { (all(s).actions.*act)(u"mb1"_s, u"ana@a.example"_s); },
          request,
          answer,
          answer.isEmpty() ? QStringList() : required,
          busy,
          shown};
}

QList<SweepRow> actionRows() {
  using A = AccountActions;
  return {
      action(u"pause"_s, &A::pause, u"POST /mailboxes/mb1/pause"_s, after(u"paused"_s)),
      action(u"resume"_s, &A::resume, u"POST /mailboxes/mb1/resume"_s, after(u"active"_s)),
      action(u"test"_s, &A::test, u"POST /mailboxes/mb1/verify"_s, after(u"verifying"_s)),
      action(u"remove"_s, &A::remove, u"DELETE /mailboxes/mb1"_s, {}),
      action(u"restore"_s, &A::restore, u"POST /mailboxes/mb1/restore"_s, after(u"active"_s)),
      action(u"removeForGood"_s, &A::removeForGood, u"DELETE /mailboxes/mb1"_s, {}),
  };
}

/// A conflict shows what somebody else made of it in place of what was typed, so that each press types as well.
SweepRow saveRow() {
  return {u"AccountSettings::save"_s,
          [](SweepStage& s) {
            arrive(s);
            // Where it is not on the screen a message tells as well.
            s.f.context->openItem(Page::accounts, u"mb1"_s);
          },
          [](SweepStage& s) {
            page(s).settings()->set(u"displayName"_s, u"Anna"_s);
            page(s).settings()->save();
          },
          u"PATCH /mailboxes/mb1"_s,
          written(mailbox({{u"displayName"_s, u"Anna"_s}, {u"version"_s, 20}})),
          required,
          [](SweepStage& s) { return page(s).settings()->saving(); },
          shown,
          [](SweepStage& s) { return page(s).settings()->problem(); }};
}

SweepRow trackingRow() {
  return {u"AccountSettings::checkTracking"_s,
          arrive,
          [](SweepStage& s) { page(s).settings()->checkTracking(); },
          u"POST /mailboxes/mb1/tracking-domain/check"_s,
          written({{u"mailbox"_s, mailbox({{u"version"_s, 20}})},
                   {u"check"_s, QJsonObject{{u"ok"_s, true}, {u"expected"_s, u"track.a.example"_s}}}}),
          {u"mailbox"_s, u"check"_s},
          [](SweepStage& s) { return page(s).settings()->checking(); },
          shown};
}

SweepRow historyRow() {
  return {u"AccountActivity::retry"_s,
          arrive,
          [](SweepStage& s) { page(s).activity()->retry(); },
          u"GET /mailboxes/mb1/history"_s,
          sample(u"MailboxHistory"_s),
          {u"timeZone"_s, u"days"_s},
          {},
          [](SweepStage& s) { return QVariant(page(s).activity()->days()); },
          [](SweepStage& s) { return failureOf(*page(s).activity()->history()); },
          true};
}

SweepRow reconnectRow() {
  return {u"ReconnectAccount::submit"_s,
          [](SweepStage& s) {
            arrive(s);
            page(s).beginReconnect();
            page(s).reconnect()->connection()->setPassword(u"p"_s);
          },
          [](SweepStage& s) { page(s).reconnect()->submit(); },
          u"PUT /mailboxes/mb1/connection"_s,
          after(u"verifying"_s),
          required,
          [](SweepStage& s) { return page(s).reconnect()->busy(); },
          shown,
          [](SweepStage& s) { return page(s).reconnect()->error(); }};
}

SweepRow addRow() {
  return {u"AddAccount::submit"_s,
          [](SweepStage& s) {
            arrive(s);
            all(s).adding.show();
            all(s).adding.choose(u"smtp"_s);
            all(s).adding.connection()->set(u"address"_s, u"ben@a.example"_s);
            all(s).adding.connection()->setPassword(u"p"_s);
          },
          [](SweepStage& s) { all(s).adding.submit(); },
          u"POST /mailboxes"_s,
          written(mailbox({{u"id"_s, u"mb9"_s}, {u"status"_s, u"verifying"_s}})),
          required,
          [](SweepStage& s) { return all(s).adding.busy(); },
          shown,
          [](SweepStage& s) { return all(s).adding.error(); }};
}

void arriveAtGoogle(SweepStage& s) {
  arrive(s);
  all(s).adding.show();
  all(s).adding.choose(u"google"_s);
  s.finish();
}
QVariant stage(SweepStage& s) { return google(s).stageName(); }
QString problem(SweepStage& s) { return google(s).problem(); }

QList<SweepRow> googleRows() {
  const SweepRow status{u"GoogleConnect::retry"_s,
                        arriveAtGoogle,
                        [](SweepStage& s) { google(s).retry(); },
                        u"GET /google-workspace"_s,
                        sample(u"GoogleWorkspaceStatus"_s),
                        {u"ready"_s, u"scope"_s},
                        {},
                        stage,
                        [](SweepStage& s) { return failureOf(*google(s).status()); },
                        true};
  const SweepRow find{u"GoogleConnect::find"_s,
                      arriveAtGoogle,
                      [](SweepStage& s) { google(s).find(u"it@a.example"_s); },
                      u"POST /google-workspace/directory"_s,
                      sample(u"GoogleDirectory"_s, {{u"code"_s, QJsonValue()}, {u"message"_s, QJsonValue()}}),
                      {u"domain"_s, u"addresses"_s, u"existing"_s},
                      [](SweepStage& s) { return google(s).looking(); },
                      stage,
                      problem,
                      true};
  const SweepRow connect{u"GoogleConnect::connectPicked"_s,
                         [](SweepStage& s) {
                           arriveAtGoogle(s);
                           google(s).find(u"it@a.example"_s);
                           s.finish();
                         },
                         [](SweepStage& s) { google(s).connectPicked(); },
                         u"POST /google-workspace/connect"_s,
                         sample(u"GoogleConnectOutcome"_s),
                         {u"results"_s, u"connected"_s},
                         [](SweepStage& s) { return google(s).connecting(); },
                         stage,
                         problem};
  return {status, find, connect};
}

}  // namespace

QList<SweepRow> accountPageRows() {
  return actionRows() + googleRows() + QList{saveRow(), trackingRow(), historyRow(), reconnectRow(), addRow()};
}

}  // namespace orv::test

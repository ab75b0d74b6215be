#include <QJsonArray>

#include "app/accounts/AccountsStore.h"
#include "tests/app/sweep/SweepStage.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::test {
namespace {

/// The list with what the workspace has beside it.
struct AccountsOnShow final : Store {
  explicit AccountsOnShow(WorkspaceContext& context) : Store(context) {}
  void ensureLoaded() override { list.ensureLoaded(); }
  void refresh() override { list.refresh(); }
  void close() override {
    list.close();
    actions.close();
    Store::close();
  }
  AccountActions actions{context()};
  AccountsStore list{context(), actions};
};

AccountsStore& accounts(SweepStage& s) { return s.the<AccountsOnShow>().list; }

void arrive(SweepStage& s) {
  s.answers[u"GET /mailboxes"_s] = sample(u"MailboxPage"_s, {{u"nextCursor"_s, QJsonValue()}});
  s.show<AccountsOnShow>();
  accounts(s).list()->appear();
  accounts(s).ensureLoaded();
  s.finish();
  accounts(s).selection()->toggleAll();
}

QVariant shown(SweepStage& s) { return accounts(s).list()->shownIds(); }
bool isRunning(SweepStage& s) { return !accounts(s).bulk()->running().isEmpty(); }

SweepRow bulk(const QString& action, const QString& typed) {
  const bool asks = !typed.isEmpty();
  SweepRow row{(asks ? u"AccountBulk::submit, "_s : u"AccountBulk::act, "_s) + action,
               arrive,
               [action](SweepStage& s) { accounts(s).bulk()->act(action); },
               u"POST /mailboxes/bulk"_s,
               sample(u"MailboxBulkResult"_s, {{u"failed"_s, QJsonArray()}}),
               {u"ok"_s, u"failed"_s},
               isRunning,
               shown};
  if (!asks) return row;
  row.arrive = [action, typed](SweepStage& s) {
    arrive(s);
    AccountBulk& bulk = *accounts(s).bulk();
    bulk.act(action);
    bulk.input() == "tags"_L1 ? bulk.addTags({typed}) : bulk.setText(typed);
  };
  row.press = [](SweepStage& s) { accounts(s).bulk()->submit(); };
  row.error = [](SweepStage& s) { return accounts(s).bulk()->error(); };
  return row;
}

}  // namespace

QList<SweepRow> accountRows() {
  QList<SweepRow> rows{
      bulk(u"pause"_s, {}),
      bulk(u"resume"_s, {}),
      bulk(u"verify"_s, {}),
      bulk(u"delete"_s, {}),
      bulk(u"set_limit"_s, u"30"_s),
      bulk(u"set_sending_gap"_s, u"7"_s),
      bulk(u"add_tags"_s, u"q4"_s),
      bulk(u"remove_tags"_s, u"q4"_s),
      bulk(u"add_to_bison"_s, u"q4"_s),
      bulk(u"set_tracking_domain"_s, u"track.{domain}"_s),
  };
  rows.append({u"AccountsStore::showArchived"_s,
               [](SweepStage& s) {
                 arrive(s);
                 accounts(s).archived()->appear();
               },
               [](SweepStage& s) {
                 accounts(s).setShowArchived(false);
                 accounts(s).setShowArchived(true);
               },
               u"GET /mailboxes"_s,
               sample(u"MailboxPage"_s, {{u"nextCursor"_s, QJsonValue()}}),
               {u"items"_s},
               {},
               shown,
               [](SweepStage& s) { return failureOf(*accounts(s).archived()); },
               true});
  return rows;
}

}  // namespace orv::test

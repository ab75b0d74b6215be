#include "app/accounts/AccountsStore.h"
#include "desktop/scenes/Scene.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

using Mode = StagedTransport::Mode;

AccountsStore& openAccounts(Stage& stage) {
  stage.app().router()->open(Page::accounts);
  stage.settle();
  return *stage.app().session()->store<AccountsStore>();
}

AccountsStore& openTicked(Stage& stage) {
  AccountsStore& accounts = openAccounts(stage);
  const auto& rows = accounts.list()->rows()->records();
  for (const size_t row : {3, 4, 5}) accounts.selection()->toggle(rows[row].id);
  return accounts;
}

void openBulk(Stage& stage, const QString& action) { openTicked(stage).bulk()->act(action); }

}  // namespace

QList<Scene> accountsScenes() {
  return {
      page(u"accounts"_s, [](Stage& s) { openAccounts(s); }),
      {u"accounts-ticked"_s, [](Stage& s) { openTicked(s); }},
      {u"accounts-more"_s,
       [](Stage& s) {
         openTicked(s);
         s.settle();
         s.press(u"More"_s);
       }},
      {u"accounts-limit"_s,
       [](Stage& s) {
         openBulk(s, u"set_limit"_s);
         s.settle();
         s.app().session()->store<AccountsStore>()->bulk()->setText(u"9999"_s);
         s.app().session()->store<AccountsStore>()->bulk()->submit();
       }},
      {u"accounts-tags"_s,
       [](Stage& s) {
         openBulk(s, u"add_tags"_s);
         s.settle();
         s.app().session()->store<AccountsStore>()->bulk()->addTags({u"q4"_s, u"fleet"_s});
       }},
      {u"accounts-tracking"_s, [](Stage& s) { openBulk(s, u"set_tracking_domain"_s); }},
      {u"accounts-removed"_s, [](Stage& s) { openTicked(s).bulk()->act(u"delete"_s); }},
      {u"accounts-sorted"_s,
       [](Stage& s) {
         auto& accounts = openAccounts(s);
         accounts.setProvider(u"google"_s);
         accounts.sort(u"health"_s, true);
       }},
      {u"accounts-none-match"_s, [](Stage& s) { openAccounts(s).setQuery(u"nothing like this"_s); }},
      {u"accounts-archive"_s,
       [](Stage& s) {
         auto& accounts = openTicked(s);
         accounts.bulk()->act(u"delete"_s);
         s.settle();
         accounts.setShowArchived(true);
       }},
      {u"accounts-empty"_s, [](Stage& s) { openAccounts(s); }, Mode::empty},
      {u"accounts-loading"_s,
       [](Stage& s) {
         s.transport().mode = Mode::holding;
         s.app().router()->open(Page::accounts);
       }},
      {u"accounts-failed"_s,
       [](Stage& s) {
         s.transport().mode = Mode::failing;
         openAccounts(s);
       }},
      {u"accounts-offline-saved"_s,
       [](Stage& s) {
         auto& accounts = openAccounts(s);
         s.transport().mode = Mode::offline;
         accounts.refresh();
       }},
  };
}

}  // namespace orv

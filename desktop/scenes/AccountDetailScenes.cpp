#include "app/accounts/AccountDetail.h"
#include "app/accounts/AccountsStore.h"
#include "desktop/scenes/Scene.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

using Mode = StagedTransport::Mode;
constexpr auto adminAddress = "it@fleet.example";

AccountsStore& openList(Stage& stage) {
  stage.app().router()->open(Page::accounts);
  stage.settle();
  return *stage.app().session()->store<AccountsStore>();
}

/// The first account that it holds for.
AccountDetail& openAccount(Stage& stage, const std::function<bool(const Mailbox&)>& is) {
  QString id;
  for (const AccountRow& row : openList(stage).list()->rows()->records())
    if (id.isEmpty() && is(row.record())) id = row.id;
  if (id.isEmpty()) throw StageTrouble(u"The sample has no such account"_s);
  stage.app().router()->openItem(Page::accounts, id);
  auto& account = *stage.app().session()->item<AccountDetail>(Page::accounts, id);
  stage.settle();
  return account;
}

bool isActive(const Mailbox& mailbox) { return mailbox.status.isActive(); }
bool isFailed(const Mailbox& mailbox) { return mailbox.status.isFailed(); }

AccountSettings& openSettings(Stage& stage) {
  AccountDetail& account = openAccount(stage, isActive);
  account.setTab(u"settings"_s);
  stage.settle();
  return *account.settings();
}

AddAccount& add(Stage& stage, const QString& way) {
  AddAccount& adding = *openList(stage).adding();
  adding.show();
  stage.settle();
  if (!way.isEmpty()) adding.choose(way);
  stage.settle();
  return adding;
}

ConnectionForm& fillSmtp(Stage& stage) {
  ConnectionForm& form = *add(stage, u"smtp"_s).connection();
  form.set(u"address"_s, u"lena@broker-desk.example"_s);
  form.set(u"displayName"_s, u"Lena Hartwig"_s);
  form.setPassword(u"an app password"_s);
  return form;
}

GoogleConnect& findGoogle(Stage& stage, const QString& admin) {
  AddAccount& adding = add(stage, u"google"_s);
  adding.setAdmin(admin);
  adding.google()->find(admin);
  return *adding.google();
}

/// Past the wait for the admin: whoever asks often enough is let in.
GoogleConnect& openDirectory(Stage& stage) {
  const auto admin = QString::fromLatin1(adminAddress);
  GoogleConnect& google = findGoogle(stage, admin);
  for (int asked = 0; asked < 8 && google.stage() != GoogleConnect::Stage::directory; ++asked) {
    stage.settle();
    google.find(admin);
    stage.settle();
  }
  if (google.stage() != GoogleConnect::Stage::directory) throw StageTrouble(u"Nobody is let in"_s);
  return google;
}

QList<Scene> detailScenes() {
  return {
      page(u"account"_s, [](Stage& s) { openAccount(s, isActive); }),
      {u"account-read-out"_s,
       [](Stage& s) {
         openAccount(s, isActive);
         s.tabTo(u"Activity"_s);
         s.press(Qt::Key_Left);
       }},
      {u"account-90-days"_s, [](Stage& s) { openAccount(s, isActive).activity()->setRange(u"90"_s); }},
      {u"account-table"_s, [](Stage& s) { openAccount(s, isActive).activity()->setView(u"table"_s); }},
      {u"account-failed-connection"_s, [](Stage& s) { openAccount(s, isFailed); }},
      {u"account-menu"_s,
       [](Stage& s) {
         openAccount(s, isActive);
         s.press(u"More"_s);
       }},
      {u"account-settings"_s, [](Stage& s) { openSettings(s); }},
      {u"account-settings-wrong"_s,
       [](Stage& s) {
         AccountSettings& form = openSettings(s);
         form.set(u"sendLimit"_s, u"a lot"_s);
         form.set(u"trackingDomain"_s, u"go"_s);
         form.save();
       }},
      {u"account-settings-refused"_s,
       [](Stage& s) {
         AccountSettings& form = openSettings(s);
         form.set(u"displayName"_s, u"Somebody Else"_s);
         s.transport().mode = Mode::failing;
         form.save();
       }},
      {u"account-reconnect"_s, [](Stage& s) { openAccount(s, isFailed).beginReconnect(); }},
      {u"account-remove"_s,
       [](Stage& s) {
         AccountDetail& account = openAccount(s, isActive);
         account.act(u"remove"_s);
       }},
      {u"account-history-failed"_s,
       [](Stage& s) {
         AccountDetail& account = openAccount(s, isActive);
         s.transport().mode = Mode::failing;
         account.activity()->setRange(u"7"_s);
       }},
  };
}

QList<Scene> addingScenes() {
  return {
      {u"add-account"_s, [](Stage& s) { add(s, {}); }},
      {u"add-smtp"_s, [](Stage& s) { fillSmtp(s); }},
      {u"add-smtp-wrong"_s,
       [](Stage& s) {
         ConnectionForm& form = fillSmtp(s);
         form.set(u"imapPort"_s, u"99999"_s);
         form.set(u"sameLogin"_s, false);
         openList(s).adding()->submit();
       }},
      {u"add-smtp-refused"_s,
       [](Stage& s) {
         fillSmtp(s);
         s.transport().mode = Mode::failing;
         openList(s).adding()->submit();
       }},
      {u"add-microsoft"_s, [](Stage& s) { add(s, u"microsoft"_s); }},
      {u"add-google"_s, [](Stage& s) { add(s, u"google"_s); }},
      {u"add-google-waiting"_s, [](Stage& s) { findGoogle(s, QString::fromLatin1(adminAddress)); }},
      {u"add-google-problem"_s, [](Stage& s) { findGoogle(s, u"somebody@gmail.com"_s); }},
      {u"add-google-directory"_s, [](Stage& s) { openDirectory(s); }},
      {u"add-google-outcome"_s, [](Stage& s) { openDirectory(s).connectPicked(); }},
      {u"add-google-failed"_s,
       [](Stage& s) {
         AddAccount& adding = *openList(s).adding();
         adding.show();
         s.settle();
         s.transport().mode = Mode::failing;
         adding.choose(u"google"_s);
       }},
  };
}

}  // namespace

QList<Scene> accountDetailScenes() { return detailScenes() + addingScenes(); }

}  // namespace orv

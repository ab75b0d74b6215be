#include "demo/Mailboxes.h"
#include "demo/Words.h"
#include "kit/models/mailboxes/googleWorkspace.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

/// So often the directory of a domain says that its admin has not let the service in yet.
constexpr int timesRefused = 3;
constexpr qsizetype peopleOnADomain = 9;

QString domainOf(const QString& address) { return address.section(u'@', -1).trimmed().toLower(); }

/// Everything here goes by the address, so that every answer can be seen.
std::optional<GoogleDirectory> refusalOf(const QString& admin, const QString& domain) {
  GoogleDirectory directory;
  directory.domain = domain;
  if (domain == "gmail.com"_L1 || domain == "googlemail.com"_L1)
    directory.code = u"personal_gmail"_s;
  else if (admin.startsWith("user@"_L1) || admin.startsWith("sales@"_L1))
    directory.code = u"need_admin"_s;
  else if (admin.startsWith("locked@"_L1))
    directory.code = u"domain_suspended"_s, directory.message = u"The domain is suspended."_s;
  if (!directory.code) return std::nullopt;
  return directory;
}

/// The people of a domain are always the same.
QStringList peopleOn(const QString& domain) {
  DemoRandom random = DemoRandom::of(domain);
  QStringList people{u"all-staff@"_s + domain, u"archive@"_s + domain};
  while (people.size() < peopleOnADomain) {
    const QString person =
        random.pick(words::firstNames()).toLower() + u'.' + random.pick(words::lastNames()).toLower() + u'@' + domain;
    if (!people.contains(person)) people.append(person);
  }
  people.sort();
  return people;
}

bool letIn(const DemoWorkspace& workspace, const QString& domain) {
  return workspace.googleAsked.value(domain) > timesRefused;
}

HTTPAnswer providers(Call&) { return jsonAnswer(toJSON(OAuthProviders{false, false})); }

HTTPAnswer status(Call& call) {
  GoogleWorkspaceStatus status;
  // One workspace sees what there is to see before the service has its key.
  status.ready = call.workspace->slug != "caldera"_L1;
  status.scope = u"https://mail.google.example/,https://www.google.example/auth/admin.directory.user.readonly"_s;
  status.adminUrl = u"https://admin.google.com/ac/owl/domainwidedelegation"_s;
  if (status.ready) status.clientId = u"104882917364550091827"_s;
  if (status.ready) status.serviceAccount = u"mailboxes@orvella.example"_s;
  return jsonAnswer(toJSON(status));
}

HTTPAnswer directory(Call& call) {
  const auto body = call.request.bodyAs<AddressBody>();
  const QString admin = body ? body->address.trimmed() : QString(), domain = domainOf(admin);
  if (!admin.contains(u'@') || domain.isEmpty()) return invalid(u"Enter an email address."_s, u"address"_s);
  if (const auto refusal = refusalOf(admin, domain)) return jsonAnswer(toJSON(*refusal));
  GoogleDirectory directory;
  directory.domain = domain;
  ++call.workspace->googleAsked[domain];
  if (!letIn(*call.workspace, domain)) {
    directory.code = u"admin_step_missing"_s;
    return jsonAnswer(toJSON(directory));
  }
  directory.addresses = peopleOn(domain);
  for (const QString& address : std::as_const(directory.addresses))
    if (isConnected(*call.workspace, address)) directory.existing.append(address);
  return jsonAnswer(toJSON(directory));
}

GoogleConnectResult refused(const QString& address, const QString& status, const QString& message) {
  return {address, domainOf(address), status, status, message, {}};
}

GoogleConnectResult connect(Call& call, const QString& address) {
  const QString domain = domainOf(address);
  if (isConnected(*call.workspace, address)) return refused(address, u"exists"_s, u"Connected already"_s);
  if (!peopleOn(domain).contains(address) || address.startsWith("all-staff@"_L1))
    return refused(address, u"invalid"_s, u"A group, not a user"_s);
  if (address.startsWith("archive@"_L1)) return refused(address, u"failed"_s, u"Gmail is turned off for this user"_s);
  if (!letIn(*call.workspace, domain))
    return refused(address, u"admin_step_missing"_s, u"The admin has not authorised the service yet"_s);
  DemoMailbox mailbox = newMailbox(call, address, nameOf(address));
  mailbox.record.provider = u"google"_s;
  mailbox.record.connection = Mailbox::Connection{u"google_dwd"_s, u"connected"_s, {}, call.stamp(), {}};
  mailbox.record.status = MailboxStatus(u"active"_s);
  call.workspace->mailboxes.append(mailbox);
  return {address, domain, u"connected"_s, {}, u"Connected"_s, mailbox.id()};
}

HTTPAnswer connectAll(Call& call) {
  const auto body = call.request.bodyAs<AddressesBody>();
  if (!body || body->addresses.isEmpty()) return invalid(u"Choose at least one address."_s, u"addresses"_s);
  GoogleConnectOutcome outcome;
  for (const QString& address : body->addresses) {
    outcome.results.append(connect(call, address));
    outcome.connected += outcome.results.last().status == "connected"_L1;
  }
  retellSenders(*call.workspace, call.now);
  return jsonAnswer(toJSON(outcome));
}

}  // namespace

const QList<Route>& googleWorkspaceRoutes() {
  static const QList<Route> routes{
      {"GET", u"/mailboxes/oauth/providers"_s, Access::readers, providers},
      {"GET", u"/google-workspace"_s, Access::readers, status},
      {"POST", u"/google-workspace/directory"_s, Access::members, directory},
      {"POST", u"/google-workspace/connect"_s, Access::members, connectAll},
  };
  return routes;
}

}  // namespace orv::demo

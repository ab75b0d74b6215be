#include "tests/soak/SoakClient.h"

#include "app/base/PagedListBase.h"

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace orv::soak {
namespace {

/// So many rows fit into the window.
constexpr int rowsSeen = 20;

}  // namespace

/// Ends when the waiting task has its answer or is gone.
class CountingTransport::Counted final : public Exchange {
 public:
  Counted(int& underWay, std::unique_ptr<Exchange> exchange) : m_underWay(underWay), m_exchange(std::move(exchange)) {
    ++m_underWay;
  }
  ~Counted() override { --m_underWay; }

 private:
  int& m_underWay;
  std::unique_ptr<Exchange> m_exchange;
};

std::unique_ptr<APITransport::Exchange> CountingTransport::exchange(APICall call,
                                                                    std::shared_ptr<AnswerReceiver> receiver) {
  ++m_begun;
  if (onRequest) onRequest(call.request.label());
  return std::make_unique<Counted>(m_underWay, m_api.exchange(std::move(call), std::move(receiver)));
}

// An answer that never comes is given up in the machine's time, of which a run has little; a sanitized service on a
// busy machine takes seconds for one that does come.
SoakClient::SoakClient(Clock& clock, const QUrl& service, const QString& folder)
    : m_api({service}, ClientIdentity::current(), {.idle = 5s, .whole = 10s}) {
  m_filePanel.folder = folder;
  m_app = std::make_unique<AppModel>(Platform{m_transport,
                                              m_keychain,
                                              clock,
                                              m_preferences,
                                              m_browser,
                                              m_clipboard,
                                              m_filePanel,
                                              m_revealer,
                                              m_memoryPressure,
                                              service,
                                              Device{},
                                              std::nullopt,
                                              {},
                                              nullptr,
                                              &m_network,
                                              &m_notifications});
  connect(m_app->openPage(), &OpenPage::changed, this, [this] {
    lookAway();
    look();
  });
  m_app->notifier()->begin();
  m_app->start();
}

SoakClient::~SoakClient() { lookAway(); }

void SoakClient::signInFurther() {
  SignInModel& signIn = *m_app->signIn();
  if (isSignedIn() || signIn.busy()) return;
  if (signIn.step() == SignInModel::Step::password) {
    signIn.setPassword(u"northgate-demo"_s);
    return signIn.submitPassword();
  }
  if (signIn.step() == SignInModel::Step::code) return signIn.useDifferentEmail();
  signIn.setEmail(u"maren@northgate.example"_s);
  signIn.submitEmail();
}

QList<Part> SoakClient::page() const {
  Store* const store = m_app->openPage()->store();
  return store ? partsOf(*store) : QList<Part>();
}

void SoakClient::look() {
  if (Store* const store = m_app->openPage()->store()) store->ensureLoaded();
  for (const Part& part : page()) {
    auto* const resource = qobject_cast<ResourceBase*>(part.object);
    if (!resource || m_seen.contains(resource)) continue;
    m_seen.append(resource);
    resource->appear();
    if (auto* const list = qobject_cast<PagedListBase*>(resource)) list->see(0, rowsSeen);
  }
}

void SoakClient::lookAway() {
  for (const auto& resource : std::exchange(m_seen, {}))
    if (resource) resource->disappear();
}

void SoakClient::forget() {
  m_browser.opened.clear();
  m_notifications.shown.clear();
  m_notifications.withdrawn.clear();
}

}  // namespace orv::soak

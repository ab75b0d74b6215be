#include "kit/models/setup/setupWords.h"

#include <QStringList>

using namespace Qt::Literals::StringLiterals;

namespace orv {

QString SetupMode::label() const {
  if (isNew()) return u"New inboxes"_s;
  if (is("existing"_L1)) return u"Existing inboxes"_s;
  return rawValue;
}

QString SetupMode::detail() const {
  if (isNew()) return u"Fresh domains from the reseller. The run creates three inboxes on each and connects them."_s;
  if (is("existing"_L1)) return u"Inboxes that already work. The run signs in as each admin and connects them."_s;
  return {};
}

QString InboxRole::label() const {
  if (is("admin"_L1)) return u"Admin inbox"_s;
  if (is("user2"_L1)) return u"Inbox 2"_s;
  if (is("user3"_L1)) return u"Inbox 3"_s;
  return u"Inbox"_s;
}

int RowState::stepsDone() const {
  static const QStringList order{u"authorize"_s, u"creating"_s, u"photo"_s, u"gmail"_s, u"connecting"_s, u"settings"_s};
  if (isWaiting()) return 0;
  return isDone() ? steps : int(order.indexOf(rawValue));
}

QString RowState::label() const {
  if (rawValue.isEmpty()) return {};
  if (is("exists"_L1)) return u"Connected before"_s;
  static const QStringList known{u"waiting"_s,    u"authorize"_s, u"creating"_s,  u"photo"_s, u"gmail"_s,
                                 u"connecting"_s, u"settings"_s,  u"connected"_s, u"error"_s, u"stopped"_s};
  return known.contains(rawValue) ? rawValue.front().toUpper() + rawValue.sliced(1) : rawValue;
}

}  // namespace orv

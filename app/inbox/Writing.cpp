#include "app/inbox/Writing.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QScopedValueRollback>

#include "app/base/shownName.h"
#include "app/inbox/addresses.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

constexpr QLatin1String beforeKey("leftBefore");

QString problemIn(const QString& text) {
  const QString wrong = splitAddresses(text).wrong;
  return wrong.isEmpty() ? QString() : u"“"_s + shownName(shownAddress(wrong)) + u"” is not an email address"_s;
}

}  // namespace

Writing::Writing(WorkspaceContext& context, const QString& key, QString about, QObject* parent)
    : QObject(parent), m_context(context), m_about(std::move(about)), m_recovery(context, hooks()) {
  m_draft.setKey(key);
  connect(&m_draft, &FieldDraft::changed, &m_recovery, &Recovery::follow);
  connect(&m_draft, &FieldDraft::changed, this, [this] {
    if (!m_typing) Q_EMIT given();
    Q_EMIT changed();
  });
}

Recovery::Hooks Writing::hooks() {
  Recovery::Hooks hooks = Recovery::of(m_draft);
  hooks.text = [this] {
    QJsonObject kept = m_draft.journal();
    if (m_isSought && (m_sending || m_uncertain))
      kept.insert(beforeKey, QJsonArray::fromStringList(m_leftBefore.values()));
    return JournalText{m_draft.version(), QJsonDocument(kept).toJson(QJsonDocument::Compact)};
  };
  hooks.restore = [this, restore = hooks.restore](const Recovery::Kept& kept) {
    const auto restored = restore(kept);
    const QJsonValue before = QJsonDocument::fromJson(kept.text.bytes).object().value(beforeKey);
    if (restored != Recovery::Restored::shown || !before.isArray()) return restored;
    m_isSought = m_uncertain = true;
    for (const auto& id : before.toArray()) m_leftBefore.insert(id.toString());
    Q_EMIT changed();
    return restored;
  };
  return hooks;
}

void Writing::setLeftBefore(const QSet<QString>& ids) {
  m_isSought = true;
  m_leftBefore = ids;
}

void Writing::type(const QString& field, const QString& text) {
  const QScopedValueRollback typing(m_typing, true);
  m_draft.set(field, text);
}

QString Writing::ccProblem() const { return problemIn(cc()); }

QString Writing::bccProblem() const { return problemIn(bcc()); }

bool Writing::canSend() const {
  return !m_sending && !body().trimmed().isEmpty() && ccProblem().isEmpty() && bccProblem().isEmpty();
}

void Writing::setState(bool sending, bool uncertain) {
  if (m_sending == sending && m_uncertain == uncertain) return;
  m_sending = sending;
  m_uncertain = uncertain;
  m_recovery.follow();
  // Before it can have left: a second later may be too late.
  if (sending && m_isSought) m_context.services().journal.write();
  if (!sending)
    for (OneShot<bool> waiting : std::exchange(m_waiting, {})) waiting.give(true);
  Q_EMIT changed();
}

Task<void> Writing::settled() {
  if (!m_sending) co_return;
  const OneShot<bool> ended;
  m_waiting.append(ended);
  co_await ended.wait();
}

QString Writing::rival() const { return m_draft.rivals().value(u"body"_s).toString(); }

void Writing::begin(const QString& body, const std::optional<QString>& draft) {
  if (draft) m_begunFor = draft;
  m_draft.rebase({.body = body, .cc = {}, .bcc = {}}, {});
  m_recovery.begin(m_draft.key(), {});
}

void Writing::sent(const WrittenFields& sent) {
  // Whoever typed on while it was on its way has begun another one.
  if (m_draft.typed() == sent) m_draft.discard();
}

void Writing::discard() { m_draft.discard(); }

}  // namespace orv

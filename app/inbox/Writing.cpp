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

constexpr QLatin1String beforeKey("leftBefore"), sentKey("sent");

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
    const bool mayBeSent = m_sending || m_uncertain;
    if (mayBeSent) kept.insert(mayBeSentKey, true);
    if (m_trace && mayBeSent) {
      kept.insert(sentKey, QJsonObject::fromVariantMap(valuesOf(m_trace->sent)));
      kept.insert(beforeKey, QJsonArray::fromStringList(m_trace->leftBefore.values()));
    }
    return JournalText{m_draft.version(), QJsonDocument(kept).toJson(QJsonDocument::Compact)};
  };
  hooks.restore = [this, restore = hooks.restore](const Recovery::Kept& kept) {
    const auto restored = restore(kept);
    const QJsonObject was = QJsonDocument::fromJson(kept.text.bytes).object();
    if (restored != Recovery::Restored::shown || !was.value(beforeKey).isArray()) return restored;
    m_uncertain = true;
    // An earlier version kept no more of it than the text.
    const QJsonValue sent = was.value(sentKey);
    m_trace = Trace{sent.isObject() ? fieldsOf<WrittenFields>(sent.toObject().toVariantMap()) : typed(), {}};
    for (const auto& id : was.value(beforeKey).toArray()) m_trace->leftBefore.insert(id.toString());
    Q_EMIT changed();
    return restored;
  };
  hooks.discard = [this] { discard(); };
  return hooks;
}

void Writing::setTrace(const Trace& trace) {
  m_trace = trace;
  if (m_sending) keepWhileSending();
}

/// Before it can have left: a second later may be too late.
void Writing::keepWhileSending() {
  m_recovery.follow();
  m_context.services().journal.write();
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
  sending ? keepWhileSending() : m_recovery.follow();
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

void Writing::discard() {
  // What is on its way may yet be looked for.
  if (!m_sending) {
    m_uncertain = false;
    m_trace.reset();
  }
  m_draft.discard();
}

}  // namespace orv

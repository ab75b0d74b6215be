#include "app/inbox/Writing.h"

#include <QScopedValueRollback>

#include "app/base/shownName.h"
#include "app/inbox/addresses.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

QString problemIn(const QString& text) {
  const QString wrong = splitAddresses(text).wrong;
  return wrong.isEmpty() ? QString() : u"“"_s + shownName(shownAddress(wrong)) + u"” is not an email address"_s;
}

}  // namespace

Writing::Writing(WorkspaceContext& context, const QString& key, QString about, QObject* parent)
    : QObject(parent), m_about(std::move(about)), m_recovery(context, Recovery::of(m_draft)) {
  m_draft.setKey(key);
  connect(&m_draft, &FieldDraft::changed, &m_recovery, &Recovery::follow);
  connect(&m_draft, &FieldDraft::changed, this, [this] {
    if (!m_typing) Q_EMIT given();
    Q_EMIT changed();
  });
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

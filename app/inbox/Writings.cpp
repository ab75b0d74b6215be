#include "app/inbox/Writings.h"

#include <QPointer>

#include "app/base/shownName.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

// The journal leads to the thread by the second part.
QString replyKey(const QString& threadId) { return u"inbox/"_s + threadId + u"/reply"_s; }
QString editKey(const Draft& draft) { return u"inbox/"_s + draft.threadId + u"/drafts/"_s + draft.id; }

}  // namespace

Writing* Writings::reply(const QString& threadId, const QString& contact) {
  Writing* writing = open(replyKey(threadId), threadId, u"Your reply to "_s + shownName(contact));
  writing->begin({});
  return writing;
}

Writing* Writings::edit(const Draft& draft, const QString& contact) {
  Writing* writing = open(editKey(draft), draft.threadId, u"Your edit of the draft for "_s + shownName(contact));
  // The review may have begun it on another of the agent's versions meanwhile.
  if (writing->begunFor() != draft.body) writing->begin(draft.body, draft.body);
  return writing;
}

Writing* Writings::open(const QString& key, const QString& threadId, const QString& about) {
  auto& writing = m_all[key];
  if (!writing) {
    writing = std::make_unique<Writing>(context(), key, about);
    connect(writing.get(), &Writing::changed, this, [this, threadId] { Q_EMIT changed(threadId); });
  }
  return writing.get();
}

Writing* Writings::find(const QString& key) const {
  const auto found = m_all.find(key);
  return found != m_all.end() ? found->second.get() : nullptr;
}

Writing* Writings::findReply(const QString& threadId) const { return find(replyKey(threadId)); }

Writing* Writings::findEdit(const Draft& draft) const { return find(editKey(draft)); }

std::optional<QString> Writings::editOf(const Draft& draft) const {
  const Writing* writing = findEdit(draft);
  return writing && writing->dirty() ? std::optional(writing->body()) : std::nullopt;
}

QStringList Writings::unsavedWork() const {
  QStringList work;
  for (const auto& [key, writing] : m_all)
    if (writing->dirty() || writing->sending())
      work.append(writing->about() + (writing->sending() ? u" is being sent."_s : u" was not sent."_s));
  return work;
}

Task<bool> Writings::flush() {
  const QPointer writings(this);
  QStringList keys;
  for (const auto& [key, writing] : m_all)
    if (writing->sending()) keys.append(key);
  for (const QString& key : keys)
    if (Writing* writing = writings ? writings->find(key) : nullptr) co_await writing->settled();
  co_return writings && writings->unsavedWork().isEmpty();
}

void Writings::trim() {
  std::erase_if(
      m_all, [](const auto& one) { return !one.second->dirty() && !one.second->sending() && !one.second->isShown(); });
}

}  // namespace orv

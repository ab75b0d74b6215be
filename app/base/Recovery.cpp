#include "app/base/Recovery.h"

#include <QJsonDocument>

#include "app/base/Draft.h"
#include "app/base/Form.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

Recovery::Recovery(WorkspaceContext& context, Hooks hooks, QObject* parent)
    : QObject(parent), m_context(context), m_hooks(std::move(hooks)) {}

Recovery::Hooks Recovery::of(FieldDraft& draft) {
  return {.isUnsaved = [&draft] { return draft.dirty(); },
          .text =
              [&draft] {
                return JournalText{draft.version(), QJsonDocument(draft.journal()).toJson(QJsonDocument::Compact)};
              },
          .restore =
              [&draft](const Kept& kept) {
                const QJsonDocument document = QJsonDocument::fromJson(kept.text.bytes);
                if (!document.isObject()) return Restored::unreadable;
                return draft.restore(document.object()) ? Restored::shown : Restored::held;
              },
          .discard = [&draft] { draft.discard(); }};
}

void Recovery::begin(const QString& key, std::optional<qint64> version) {
  if (m_line && m_key == key) return;
  end();
  m_key = key;
  m_line = std::make_unique<JournalLine>(m_context.services().journal, Journal::Key{m_context.workspace().slug, key},
                                         m_hooks.text);
  m_task.start(takeUp(version));
}

void Recovery::keep(Form& form, FieldDraft& draft) {
  connect(&draft, &FieldDraft::changed, this, &Recovery::follow);
  connect(&form, &Form::changed, this, [this, &form, &draft] {
    if (!form.shown())
      giveUp();
    else if (!draft.key().isEmpty())
      begin(draft.key(), draft.version());
  });
}

void Recovery::giveUp() {
  if (!m_line) return;
  // Discarding is told to whoever led here.
  const auto line = std::exchange(m_line, nullptr);
  m_hooks.discard();
  line->follow(false);
  end();
}

void Recovery::end() {
  m_task.cancel();
  m_line.reset();
  m_key.clear();
  setNotice({});
}

Task<void> Recovery::takeUp(std::optional<qint64> version) {
  const auto kept = co_await m_line->takeUp();
  // Whoever was quick enough to type meanwhile goes on with that.
  if (kept && !m_hooks.isUnsaved()) {
    const bool isOther = kept->base && version && *kept->base != *version;
    const auto restored = m_hooks.restore({*kept, isOther});
    if (restored == Restored::unreadable) m_line->setAside();
    if (restored == Restored::shown)
      setNotice(isOther ? u"Restored what you had not saved. It was changed since: saving puts yours in its place."_s
                        : u"Restored what you had not saved."_s);
  }
  follow();
}

void Recovery::follow() {
  if (!m_line) return;
  const bool isUnsaved = m_hooks.isUnsaved();
  m_line->follow(isUnsaved);
  if (!isUnsaved) setNotice({});
}

void Recovery::discard() {
  m_hooks.discard();
  follow();
}

void Recovery::setNotice(const QString& notice) {
  if (std::exchange(m_notice, notice) != notice) Q_EMIT changed();
}

}  // namespace orv

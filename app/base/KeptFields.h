#pragma once

#include "app/base/Draft.h"
#include "app/base/Form.h"
#include "app/base/Recovery.h"

namespace orv {

/// Keeps in the journal what is filled in in a form whose owner holds its fields itself, beside what is no text: a
/// file, whom it is about. `Fields` is a described struct of what a person types.
template <class Fields>
class KeptFields final {
 public:
  using Read = std::function<Fields()>;
  using Write = std::function<void(const Fields&)>;

  /// `read` gives the fields as they are; `write` fills in what was kept.
  KeptFields(WorkspaceContext& context, Form& form, Read read, Write write)
      : m_form(form), m_read(std::move(read)), m_write(std::move(write)), m_recovery(context, hooks()) {
    m_recovery.keep(form, m_draft);
  }

  /// The form is about to be shown, with nothing of the person's in it yet.
  void open(const QString& key) {
    m_draft.setKey(key);
    m_draft.fill(m_read());
  }
  /// Something was filled in. Whoever tells of it on and on ties that to recovery(), which is gone before the form: one
  /// that goes with its work under way still says that it changed.
  void follow() {
    if (!m_form.shown()) return;
    for (const auto& [field, value] : valuesOf(m_read()).asKeyValueRange()) m_draft.set(field, value);
  }
  /// The service has it; the form may go on to show what came of it.
  void taken() { m_draft.fill(m_read()); }
  /// The form goes with its owner; what was filled in stays in the journal.
  void leave() { m_recovery.end(); }
  Recovery* recovery() { return &m_recovery; }

 private:
  Recovery::Hooks hooks() {
    Recovery::Hooks hooks = Recovery::of(m_draft);
    hooks.restore = [this, restore = hooks.restore](const Recovery::Kept& kept) {
      const auto restored = restore(kept);
      if (restored == Recovery::Restored::shown) m_write(m_draft.typed());
      return restored;
    };
    hooks.discard = [this] {
      m_draft.discard();
      // Of a form that was closed while it is sent, what was sent comes back with it.
      if (m_form.shown()) m_write(m_draft.typed());
    };
    return hooks;
  }

  Form& m_form;
  Read m_read;
  Write m_write;
  DraftOf<Fields> m_draft;
  Recovery m_recovery;
};

}  // namespace orv

#include "app/accounts/AccountsStore.h"

#include "app/base/recordActions.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

QList<FoundRecord> AccountsStore::found() const {
  QList<FoundRecord> records;
  m_list.each([&records](const AccountRow& row) {
    records.append({row.id, row.record().address, row.record().displayName});
  });
  return records;
}

QList<PageAction> AccountsStore::offered(const QString& record) {
  if (const AccountRow* row = m_list.find(record)) return offeredLive(row->record());
  if (const AccountRow* row = m_archived.find(record)) return offeredArchived(row->record());
  if (!record.isEmpty()) return {};
  const QList<PageAction> actions{
      newAction(u"Add account"_s, addHint(), [this] { m_adding.show(); }),
      archiveAction(u"Archived accounts"_s, m_showArchived, [this] { setShowArchived(true); })};
  return actions + Store::offered(record);
}

QList<PageAction> AccountsStore::offeredLive(const Mailbox& mailbox) {
  const QString id = mailbox.id, address = mailbox.address;
  const bool isFree = !m_actions.busy().contains(id);
  QList<PageAction> actions;
  if (mailbox.status.isActive())
    actions.append({.key = u"pause"_s,
                    .title = u"Pause"_s,
                    .icon = u"media-playback-pause"_s,
                    .writes = true,
                    .possible = isFree,
                    .anywhere = true,
                    .run = [this, id, address] { m_actions.pause(id, address); }});
  if (mailbox.status.isPaused())
    actions.append({.key = u"resume"_s,
                    .title = u"Resume"_s,
                    .icon = u"media-playback-start"_s,
                    .writes = true,
                    .possible = isFree,
                    .anywhere = true,
                    .run = [this, id, address] { m_actions.resume(id, address); }});
  actions.append({{.key = u"test"_s,
                   .title = u"Test connection"_s,
                   .icon = u"network-connect"_s,
                   .writes = true,
                   .possible = isFree,
                   .anywhere = true,
                   .run = [this, id, address] { m_actions.test(id, address); }},
                  {.key = u"copy-address"_s,
                   .title = u"Copy email address"_s,
                   .icon = u"edit-copy"_s,
                   .anywhere = true,
                   .run = [this, address] { copyAddress(address); }},
                  {.key = u"delete"_s,
                   .title = u"Remove"_s,
                   .icon = u"edit-delete"_s,
                   .writes = true,
                   .danger = true,
                   .possible = isFree,
                   .anywhere = true,
                   .run = [this, id, address] { m_actions.remove(id, address); }}});
  return actions;
}

QList<PageAction> AccountsStore::offeredArchived(const Mailbox& mailbox) {
  const QString id = mailbox.id, address = mailbox.address;
  return archivedActions(
      !m_actions.busy().contains(id), [this, id, address] { m_actions.restore(id, address); },
      [this, id, address] { m_actions.removeForGood(id, address); }, address);
}

void AccountsStore::copyAddress(const QString& address) {
  if (services().clipboard.setText(address))
    services().toasts.success(u"Copied"_s);
  else
    services().toasts.show(
        {.message = u"Couldn’t copy. Select the address and copy it."_s, .tone = Toasts::Tone::error});
}

}  // namespace orv

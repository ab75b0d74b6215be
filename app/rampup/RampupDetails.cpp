#include "app/rampup/RampupDetails.h"

#include "app/rampup/RampupRows.h"
#include "kit/models/mailboxes/mailbox.h"
#include "kit/models/rampup/rampupRequests.h"

namespace orv {

RampupDetails::RampupDetails(WorkspaceContext& context, Store& whole)
    : Store(context, &whole),
      m_ahead(
          context, [this](const QString& id) { return api().send(Requests::getRampup(id)); }, freshFor) {
  context.changes().watch<RampupAccount>(this, [this](const Change<RampupAccount>& change) {
    if (change.acted || change.kind != Change<RampupAccount>::Kind::is) forget(change.id);
  });
  context.changes().watch<Mailbox>(this, [this](const Change<Mailbox>& change) {
    if (change.acted) forget(change.id);
  });
}

void RampupDetails::close() {
  m_ahead.cancel();
  Store::close();
}

}  // namespace orv

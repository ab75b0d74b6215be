#include "app/leads/LeadFinder.h"

namespace orv {

LeadFinder::LeadFinder(WorkspaceContext& context, Store& whole, LeadActions& actions)
    : Store(context, &whole), m_results(context, *this, actions) {}

void LeadFinder::ensureLoaded() { m_results.ensureLoaded(); }

void LeadFinder::refresh() { m_results.refresh(); }

QList<PageAction> LeadFinder::offered(const QString& record) { return m_results.actions(record); }

}  // namespace orv

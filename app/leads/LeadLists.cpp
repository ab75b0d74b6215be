#include "app/leads/LeadLists.h"

#include "kit/models/leads/leadListRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

LeadLists::LeadLists(WorkspaceContext& context, Store& whole, LeadActions&)
    : Store(context, &whole),
      m_list(*this, [this] { return api().send(Requests::leadLists(false)); }, {.failed = u"Couldn’t load lists"_s}) {
  connect(&m_list, &ResourceBase::changed, this, &LeadLists::changed);
}

int LeadLists::count() const { return m_list.value() ? int(m_list.value()->items.size()) : -1; }

QList<LeadList> LeadLists::all() const { return m_list.value() ? m_list.value()->items : QList<LeadList>(); }

}  // namespace orv

#pragma once

#include <boost/mp11/list.hpp>

#include "kit/api/APIError.h"
#include "kit/models/analytics/analyticsOverview.h"
#include "kit/models/analytics/analyticsSummary.h"
#include "kit/models/analytics/dashboard.h"
#include "kit/models/analytics/warmupHealth.h"
#include "kit/models/campaigns/addLeads.h"
#include "kit/models/campaigns/campaign.h"
#include "kit/models/campaigns/campaignFeed.h"
#include "kit/models/campaigns/campaignLead.h"
#include "kit/models/campaigns/campaignSummary.h"
#include "kit/models/campaigns/emailPreview.h"
#include "kit/models/campaigns/leadChanges.h"
#include "kit/models/campaigns/sentMessage.h"
#include "kit/models/campaigns/sequence.h"
#include "kit/models/campaigns/subsequence.h"
#include "kit/models/campaigns/testEmail.h"
#include "kit/models/deliverability/deliverabilityReport.h"
#include "kit/models/inbox/draftReview.h"
#include "kit/models/inbox/setterSettings.h"
#include "kit/models/inbox/setterTraining.h"
#include "kit/models/inbox/threadDetail.h"
#include "kit/models/labels.h"
#include "kit/models/leads/facets.h"
#include "kit/models/leads/leadCounts.h"
#include "kit/models/leads/leadImport.h"
#include "kit/models/leads/leadRecord.h"
#include "kit/models/leads/listAdding.h"
#include "kit/models/leads/ownLeads.h"
#include "kit/models/leads/savedSearch.h"
#include "kit/models/leads/unlocks.h"
#include "kit/models/mailboxes/googleWorkspace.h"
#include "kit/models/mailboxes/mailboxBulk.h"
#include "kit/models/mailboxes/mailboxHealth.h"
#include "kit/models/mailboxes/mailboxHistory.h"
#include "kit/models/mailboxes/mailboxPage.h"
#include "kit/models/mailboxes/trackingDomainCheck.h"
#include "kit/models/rampup/rampupChanges.h"
#include "kit/models/rampup/rampupDetail.h"
#include "kit/models/rampup/roadmapTemplate.h"
#include "kit/models/rampup/warmupStats.h"
#include "kit/models/setup/setupChanges.h"
#include "kit/models/setup/setupProject.h"
#include "kit/models/setup/setupRun.h"
#include "kit/models/workspace/members.h"
#include "kit/models/workspace/workspaceDetail.h"
#include "kit/session/authRequests.h"

namespace orv::test {

/// Every record that an answer of the service may be.
using AnswerRecords = boost::mp11::mp_list<
    CampaignList, Campaign, PreviewResponse, TestEmail, SubsequenceList, SpintaxOut, LeadPage, LeadDetail, FeedPage,
    MessagePage, AddLeadsResult, LeadListPage, LeadSearchPage, LeadPools, LeadTotals, FacetPage, LeadRecord,
    SavedSearchList, UnlockUsage, UnlockResult, LeadList, ListCreated, ListAddResult, ListRemoved, LeadImportPage,
    ImportStarted, OwnLeads, BulkResult, MoveResult, RestoredResult, AnalyticsSummary, AnalyticsOverview, WarmupHealth,
    Dashboard, MailboxPage, MailboxHistory, TrackingDomainCheck, MailboxBulkResult, MailboxHealth,
    GoogleWorkspaceStatus, GoogleDirectory, GoogleConnectOutcome, OAuthProviders, RampupList, RampupDetail, WarmupStats,
    SetupProjectPage, SetupProject, SetupRun, DomainChecks, RegistrarLookup, RampupBulkResult, TemplatePage,
    RoadmapTemplate, DeliverabilityReport, DeliverabilityInboxDetail, ThreadPage, InboxThread, ThreadDetail,
    ReplyAccepted, Draft, ReviewDraftPage, DraftVersions, DraftTraining, SetterSettings, SetterTraining, SetterLessons,
    SetterCampaignModes, TagList, ReplyLabelList, WorkspaceDetail, MemberPage, InvitePage, ClientWorkspace, AuthMethods,
    EmailCheck, EmailStarted, NativeSession, MeResponse, UnreadCounts, Problem>;

}  // namespace orv::test

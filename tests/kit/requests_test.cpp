#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTest>
#include <boost/type_index.hpp>
#include <functional>
#include <map>

#include "kit/models/analytics/analyticsOverview.h"
#include "kit/models/analytics/analyticsRequests.h"
#include "kit/models/analytics/analyticsSummary.h"
#include "kit/models/analytics/dashboard.h"
#include "kit/models/analytics/warmupHealth.h"
#include "kit/models/campaigns/addLeads.h"
#include "kit/models/campaigns/campaign.h"
#include "kit/models/campaigns/campaignFeed.h"
#include "kit/models/campaigns/campaignLead.h"
#include "kit/models/campaigns/campaignLeadRequests.h"
#include "kit/models/campaigns/campaignOptions.h"
#include "kit/models/campaigns/campaignRequests.h"
#include "kit/models/campaigns/campaignSchedule.h"
#include "kit/models/campaigns/campaignSummary.h"
#include "kit/models/campaigns/emailPreview.h"
#include "kit/models/campaigns/launchCheck.h"
#include "kit/models/campaigns/leadChanges.h"
#include "kit/models/campaigns/leadStatus.h"
#include "kit/models/campaigns/sentMessage.h"
#include "kit/models/campaigns/sequence.h"
#include "kit/models/campaigns/subsequence.h"
#include "kit/models/campaigns/testEmail.h"
#include "kit/models/deliverability/deliverabilityReport.h"
#include "kit/models/deliverability/deliverabilityRequests.h"
#include "kit/models/inbox/draftRequests.h"
#include "kit/models/inbox/draftReview.h"
#include "kit/models/inbox/inboxRequests.h"
#include "kit/models/inbox/inboxWords.h"
#include "kit/models/inbox/setterRequests.h"
#include "kit/models/inbox/setterSettings.h"
#include "kit/models/inbox/setterTraining.h"
#include "kit/models/inbox/threadDetail.h"
#include "kit/models/inbox/threadFilter.h"
#include "kit/models/labels.h"
#include "kit/models/leads/facets.h"
#include "kit/models/leads/leadExport.h"
#include "kit/models/leads/leadIds.h"
#include "kit/models/leads/leadImport.h"
#include "kit/models/leads/leadListRequests.h"
#include "kit/models/leads/leadRecord.h"
#include "kit/models/leads/leadRequests.h"
#include "kit/models/leads/leadSearch.h"
#include "kit/models/leads/listAdding.h"
#include "kit/models/leads/ownLeads.h"
#include "kit/models/leads/savedSearch.h"
#include "kit/models/leads/unlocks.h"
#include "kit/models/mailboxes/googleWorkspace.h"
#include "kit/models/mailboxes/mailboxBulk.h"
#include "kit/models/mailboxes/mailboxHistory.h"
#include "kit/models/mailboxes/mailboxPage.h"
#include "kit/models/mailboxes/mailboxPatch.h"
#include "kit/models/mailboxes/mailboxRequests.h"
#include "kit/models/mailboxes/newMailbox.h"
#include "kit/models/mailboxes/trackingDomainCheck.h"
#include "kit/models/rampup/rampupChanges.h"
#include "kit/models/rampup/rampupDetail.h"
#include "kit/models/rampup/rampupRequests.h"
#include "kit/models/rampup/roadmapTemplate.h"
#include "kit/models/rampup/warmupStats.h"
#include "kit/models/setup/setupChanges.h"
#include "kit/models/setup/setupProject.h"
#include "kit/models/setup/setupRequests.h"
#include "kit/models/setup/setupRun.h"
#include "kit/models/workspace/members.h"
#include "kit/models/workspace/workspaceDetail.h"
#include "kit/models/workspace/workspaceRequests.h"
#include "kit/session/authRequests.h"
#include "tests/support/fixtures.h"

using namespace orv;
using namespace orv::Requests;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;

namespace {

struct Built {
  template <class R>
  Built(Request<R> built)
      : request(std::move(built)),
        answer(QString::fromStdString(boost::typeindex::type_id<R>().pretty_name()).remove(u"orv::"_s)) {}
  APIRequest request;
  QString answer;
};

CampaignPatch wholePatch() {
  CampaignOptions settings{.dkimSelectors = QMap<QString, QString>{{u"a.example"_s, u"s1"_s}},
                           .pacing = u"even"_s,
                           .dailyLimit = 400,
                           .maxNewPerDay = 0,
                           .prioritizeNew = true,
                           .stopOnAutoReply = false,
                           .stopCompanyOnReply = true,
                           .unsubscribeHeader = true,
                           .cc = QList{u"c@a.example"_s},
                           .bcc = QList<QString>{},
                           .senderTags = QList{u"warm"_s}};
  return {.name = u"n"_s,
          .schedule = CampaignSchedule{.startDate = u"2026-11-23"_s,
                                       .schedules = {{u"Week"_s, {1, 5}, u"09:00"_s, u"17:30"_s, u"Europe/Berlin"_s}}},
          .dailyCapPerInbox = 30,
          .gapSeconds = 90,
          .stopOnReply = false,
          .senderMailboxIds = QList{u"m2"_s, u"m1"_s},
          .settings = settings,
          .tags = QList<QString>{},
          .trigger = CampaignTrigger{{u"interested"_s}}};
}

StepsBody steps() {
  return {{{u"s1"_s, 0, false, {{u"v1"_s, u"A"_s, u"Hi {{firstName}}"_s, u"<p>1</p>"_s, 50, true}}},
           {{}, 2880, true, {{{}, u"A"_s, u""_s, u"2"_s, 100, false}}}}};
}

MailboxConnectionIn::SmtpImap smtpLogin() {
  return {u"ana"_s, u" p\"ß "_s, {u"smtp.a.example"_s, 587, false}, {u"imap.a.example"_s, 993, true}, {}, {}};
}

SetterSettings agent() {
  return {u"n"_s,
          {.name = u"s"_s},
          u"k"_s,
          u"i"_s,
          u"t"_s,
          u"https://b.example"_s,
          words::toneCasual,
          words::modeAuto,
          true,
          60,
          4,
          true,
          9};
}

/// A search with everything that a body treats in a way of its own.
LeadSearch search() {
  return {{{u"xtitle"_s, u"intern"_s},
           {u"q"_s, u"owner, founder"_s},
           {u"qin"_s, u"title"_s},
           {u"title"_s, u" CEO ,, Head of Sales"_s},
           {u"company"_s, QString()},
           {u"band"_s, u"3,x,5"_s},
           {u"hasPhone"_s, u"1"_s},
           {u"source"_s, u"linkedin"_s},
           {u"followersMin"_s, u"many"_s},
           {u"followersMax"_s, u"9000"_s},
           {u"tomorrow"_s, u"x"_s}},
          u"used"_s};
}

QList<RoadmapStage> roadmap() { return {{u"warmup"_s, u"Warm-up only"_s, 14, {5, 18}, {0, 0}}}; }

/// The calls behind the cases of the fixture.
const std::map<QString, std::function<Built()>>& builders() {
  static const QString c1 = u"c1"_s, l1 = u"l1"_s, mb1 = u"mb1"_s, t1 = u"t1"_s, d1 = u"d1"_s, sp1 = u"sp1"_s,
                       sr1 = u"sr1"_s, email = u"a@b.example"_s;
  static const std::map<QString, std::function<Built()>> all{
      {u"listCampaigns"_s, [] { return listCampaigns(false); }},
      {u"listCampaigns archived"_s, [] { return listCampaigns(true); }},
      {u"getCampaign"_s, [] { return getCampaign(u"c/1 x"_s); }},
      {u"createCampaign"_s, [] { return createCampaign({u"Q3 “Fall”"_s}); }},
      {u"updateCampaign name"_s, [] { return updateCampaign(c1, {.name = u"New"_s}, 7); }},
      {u"updateCampaign nothing"_s, [] { return updateCampaign(c1, {}, {}); }},
      {u"updateCampaign all"_s, [] { return updateCampaign(c1, wholePatch(), 0); }},
      {u"updateCampaign without limits"_s,
       [] {
         CampaignPatch patch;
         patch.settings.emplace().dailyLimit = Clearable<qint64>::cleared();
         patch.settings->maxNewPerDay = Clearable<qint64>::cleared();
         return updateCampaign(c1, patch, 3);
       }},
      {u"listMailboxes"_s, [] { return listMailboxes(); }},
      {u"listMailboxes all"_s, [] { return listMailboxes(true, u"a+b/c=="_s); }},
      {u"getMailbox"_s, [] { return getMailbox(u"mb/1 x%2F"_s); }},
      {u"mailboxHistory"_s, [] { return mailboxHistory(mb1, 90); }},
      {u"updateMailbox nothing"_s, [] { return updateMailbox(mb1, {}, {}); }},
      {u"updateMailbox all"_s,
       [] {
         return updateMailbox(
             mb1, {u"Ana"_s, 40, 0, 7, u"Best,\nAna"_s, QList{u"dach"_s}, Clearable<QString>(u"t.a.example"_s)}, 0);
       }},
      {u"updateMailbox without its tracking domain"_s,
       [] {
         MailboxPatch patch;
         patch.trackingDomain = Clearable<QString>::cleared();
         return updateMailbox(mb1, patch, 7);
       }},
      {u"setReadyMode"_s, [] { return setReadyMode(mb1, u"manual"_s, 7); }},
      {u"pauseMailbox"_s, [] { return pauseMailbox(mb1); }},
      {u"resumeMailbox"_s, [] { return resumeMailbox(mb1); }},
      {u"verifyMailbox"_s, [] { return verifyMailbox(mb1); }},
      {u"checkTrackingDomain"_s, [] { return checkTrackingDomain(mb1); }},
      {u"createMailbox smtp"_s,
       [] { return createMailbox({.address = email, .displayName = u"Ana"_s}, {smtpLogin()}); }},
      {u"createMailbox all"_s,
       [] {
         return createMailbox({email, u"Ana"_s, 40, 30, 0, u"Ana"_s, QList{u"dach"_s}},
                              {MailboxConnectionIn::MsGraphApp{u"t"_s, u"c"_s, u" s\"ß "_s}});
       }},
      {u"reconnectMailbox smtp"_s,
       [] {
         auto login = smtpLogin();
         login.imapUsername = u"reader"_s;
         login.imapPassword = u"r"_s;
         return reconnectMailbox(mb1, {login});
       }},
      {u"reconnectMailbox google"_s, [] { return reconnectMailbox(mb1, {MailboxConnectionIn::GoogleDwd{}}); }},
      {u"deleteMailbox"_s, [] { return deleteMailbox(mb1, false); }},
      {u"deleteMailbox for good"_s, [] { return deleteMailbox(mb1, true); }},
      {u"restoreMailbox"_s, [] { return restoreMailbox(mb1); }},
      {u"bulkMailboxes"_s,
       [] {
         return bulkMailboxes({.action = u"pause"_s, .ids = {mb1, u"mb2"_s}});
       }},
      {u"bulkMailboxes all"_s,
       [] {
         return bulkMailboxes({u"set_tracking_domain"_s, {mb1}, 30, 0, QList<QString>(), u""_s});
       }},
      {u"oauthProviders"_s, [] { return oauthProviders(); }},
      {u"googleWorkspaceStatus"_s, [] { return googleWorkspaceStatus(); }},
      {u"googleDirectory"_s, [] { return googleDirectory({email}); }},
      {u"googleConnect"_s,
       [] {
         return googleConnect({{email, u"b@b.example"_s}});
       }},
      {u"listRampup"_s, [] { return listRampup(); }},
      {u"getRampup"_s, [] { return getRampup(u"mb/1 x"_s); }},
      {u"warmupStats"_s, [] { return warmupStats(mb1, 30); }},
      {u"editRoadmap"_s, [] { return editRoadmap(mb1, {roadmap()}, 4); }},
      {u"updateWarmup nothing"_s, [] { return updateWarmup(mb1, {}); }},
      {u"updateWarmup without an increase"_s,
       [] { return updateWarmup(mb1, {.increasePerDay = Clearable<qint64>::cleared()}); }},
      {u"updateWarmup all"_s,
       [] {
         return updateWarmup(mb1, {false, 24, Clearable<qint64>(0), 32, 58, 20, 80, u""_s, true, false, true});
       }},
      {u"pauseRoadmap"_s, [] { return pauseRoadmap(mb1); }},
      {u"resumeRoadmap"_s, [] { return resumeRoadmap(mb1); }},
      {u"extendRoadmap"_s, [] { return extendRoadmap(mb1, {7}); }},
      {u"restartRoadmap"_s, [] { return restartRoadmap(mb1, {}); }},
      {u"restartRoadmap on a template"_s, [] { return restartRoadmap(mb1, {t1}); }},
      {u"bulkRampup pause"_s,
       [] {
         return bulkRampup({.mailboxIds = {mb1, u"mb2"_s}, .action = u"pause"_s});
       }},
      {u"bulkRampup all"_s,
       [] {
         return bulkRampup({{mb1}, u"edit"_s, 7, t1, roadmap()});
       }},
      {u"listTemplates"_s, [] { return listTemplates(false); }},
      {u"listTemplates archived"_s, [] { return listTemplates(true); }},
      {u"createTemplate"_s,
       [] {
         return createTemplate({u"Spring"_s, {}, {}});
       }},
      {u"updateTemplate name"_s, [] { return updateTemplate(t1, {.name = u"Spring"_s}, 3); }},
      {u"updateTemplate stages"_s, [] { return updateTemplate(t1, {.stages = roadmap()}, 3); }},
      {u"deleteTemplate"_s, [] { return deleteTemplate(t1, false); }},
      {u"deleteTemplate for good"_s, [] { return deleteTemplate(t1, true); }},
      {u"restoreTemplate"_s, [] { return restoreTemplate(t1); }},
      {u"listSetupProjects"_s, [] { return listSetupProjects(false); }},
      {u"listSetupProjects archived"_s, [] { return listSetupProjects(true); }},
      {u"getSetupProject"_s, [] { return getSetupProject(u"sp/1"_s); }},
      {u"createSetupProject"_s,
       [] {
         return createSetupProject({u"Spring domains"_s, SetupMode::fresh()});
       }},
      {u"updateSetupProject nothing"_s, [] { return updateSetupProject(sp1, {}, 4); }},
      {u"updateSetupProject clearing"_s,
       [] {
         const auto text = Clearable<QString>::cleared();
         const auto number = Clearable<qint64>::cleared();
         return updateSetupProject(sp1,
                                   {.user2 = text,
                                    .user3 = text,
                                    .dailyLimit = number,
                                    .minWaitMinutes = number,
                                    .password = text,
                                    .newPassword = text,
                                    .recoveryEmail = text},
                                   4);
       }},
      {u"updateSetupProject all"_s,
       [] {
         return updateSetupProject(
             sp1,
             {u"n"_s, u"ellen"_s, u"E"_s, u"M"_s, Clearable(u"e"_s), Clearable(u"m"_s), u"s"_s, u"g"_s,
              Clearable<qint64>(0), QList<QString>{}, Clearable<qint64>(7), QList{u"a.example"_s}, Clearable(u" p "_s),
              Clearable(u"12345678"_s), Clearable(u"it@a.example"_s)},
             4);
       }},
      {u"deleteSetupProject"_s, [] { return deleteSetupProject(sp1); }},
      {u"restoreSetupProject"_s, [] { return restoreSetupProject(sp1); }},
      {u"restoreSetupDomain"_s, [] { return restoreSetupDomain(sp1, {u"c.example"_s}); }},
      {u"uploadSetupPhoto"_s,
       [] {
         return uploadSetupPhoto(sp1, {u"image/png"_s, u"iVBOR"_s});
       }},
      {u"removeSetupPhoto"_s, [] { return removeSetupPhoto(sp1); }},
      {u"setupPhoto"_s, [] { return setupPhoto(sp1, 2); }},
      {u"setupCredentials"_s, [] { return setupCredentials(sp1); }},
      {u"latestSetupRun"_s, [] { return latestSetupRun(sp1); }},
      {u"getSetupRun"_s, [] { return getSetupRun(u"sr/1"_s); }},
      {u"startSetupRun"_s,
       [] {
         return startSetupRun({SetupMode::fresh(),
                               sp1,
                               {u"a.example"_s},
                               u"ellen"_s,
                               u"e.marsh"_s,
                               {},
                               u"Ellen"_s,
                               u"Marsh"_s,
                               u""_s,
                               u"E."_s,
                               30,
                               {u"fleet"_s},
                               12});
       }},
      {u"retrySetupRun"_s, [] { return retrySetupRun(sr1); }},
      {u"retrySetupRun domain"_s, [] { return retrySetupRun(sr1, u"a.example"_s); }},
      {u"pauseSetupRun"_s, [] { return pauseSetupRun(sr1); }},
      {u"resumeSetupRun"_s, [] { return resumeSetupRun(sr1); }},
      {u"terminateSetupRun"_s, [] { return terminateSetupRun(sr1); }},
      {u"setupDomainChecks"_s, [] { return setupDomainChecks(sr1, u"a.example"_s); }},
      {u"lookUpRegistrars"_s, [] { return lookUpRegistrars({{u"a.example"_s}}); }},
      {u"deliverability"_s, [] { return deliverability(); }},
      {u"deliverabilityInbox"_s, [] { return deliverabilityInbox(u"mb/1"_s); }},
      {u"listTags"_s, [] { return listTags(); }},
      {u"listThreads"_s, [] { return listThreads({.query = u" \t "_s, .label = QString(), .mailbox = QString()}); }},
      {u"listThreads all"_s,
       [] {
         return listThreads({ThreadFilter::Tab::archived, u" mara & co "_s, u"not_now"_s, mb1}, u"a+b/c=="_s);
       }},
      {u"listThreads drafts"_s, [] { return listThreads({.label = ThreadFilter::drafts}); }},
      {u"listThreads unlabelled"_s, [] { return listThreads({.label = ThreadFilter::unlabelled}); }},
      {u"listThreads unread of a mailbox"_s,
       [] { return listThreads({.tab = ThreadFilter::Tab::unread, .mailbox = mb1}); }},
      {u"unreadThreads"_s, [] { return unreadThreads(); }},
      {u"newReplies"_s, [] { return newReplies(u"interested"_s, u"2026-11-21T09:30:00Z"_s); }},
      {u"getThread"_s, [] { return getThread(u"t/1 x"_s); }},
      {u"updateThread nothing"_s, [] { return updateThread(t1, {}); }},
      {u"updateThread all"_s,
       [] {
         return updateThread(t1, {u"lost"_s, words::threadArchived, false, true});
       }},
      {u"updateThread without its label"_s, [] { return updateThread(t1, {.label = Clearable<QString>::cleared()}); }},
      {u"replyToThread"_s,
       [] {
         return replyToThread(t1, {u" Hi "_s, QList{u"c@b.example"_s}, QList<QString>()});
       }},
      {u"draftReply"_s, [] { return draftReply(t1); }},
      {u"checkMail"_s, [] { return checkMail(); }},
      {u"listDrafts"_s, [] { return listDrafts(words::draftPending); }},
      {u"listDrafts further"_s, [] { return listDrafts(words::draftAsWritten, u"100"_s); }},
      {u"approveDraft"_s, [] { return approveDraft(d1, {}); }},
      {u"approveDraft all"_s,
       [] {
         return approveDraft(d1, {u"Hi"_s, u"Re"_s, true, u"casual"_s});
       }},
      {u"rejectDraft"_s, [] { return rejectDraft(d1, {}); }},
      {u"rejectDraft why"_s, [] { return rejectDraft(d1, {u"Wrong price"_s}); }},
      {u"undoApproveDraft"_s, [] { return undoApproveDraft(d1); }},
      {u"restoreDraft"_s, [] { return restoreDraft(d1); }},
      {u"draftVersions"_s, [] { return draftVersions(d1); }},
      {u"draftTraining"_s, [] { return draftTraining(u"d/1"_s); }},
      {u"setterSettings"_s, [] { return setterSettings(); }},
      {u"updateSetterSettings all"_s, [] { return updateSetterSettings(patchBetween({}, agent()), 9); }},
      {u"updateSetterSettings without its link"_s,
       [] {
         SetterSettings without = agent();
         without.bookingUrl.reset();
         return updateSetterSettings(patchBetween(agent(), without), 9);
       }},
      {u"setterTraining"_s, [] { return setterTraining(); }},
      {u"setterLessons"_s, [] { return setterLessons(); }},
      {u"addSetterLesson"_s, [] { return addSetterLesson({u"Be brief"_s}); }},
      {u"updateSetterLesson"_s, [] { return updateSetterLesson(u"r/1"_s, {.status = words::lessonOff}); }},
      {u"setterCampaignModes"_s, [] { return setterCampaignModes(); }},
      {u"setSetterMode"_s, [] { return setSetterMode(u"c/1"_s, {words::modeOff}); }},
      {u"setSetterMode to the default"_s, [] { return setSetterMode(c1, {}); }},
      {u"listReplyLabels"_s, [] { return listReplyLabels(); }},
      {u"saveSteps"_s, [] { return saveSteps(c1, steps()); }},
      {u"previewCampaign"_s, [] { return previewCampaign(c1, {}); }},
      {u"previewCampaign unsaved"_s,
       [] {
         return previewCampaign(c1, {l1, QList<StepIn>{{}}});
       }},
      {u"sendTestEmail"_s, [] { return sendTestEmail(c1, {.to = email, .stepPosition = 1}); }},
      {u"sendTestEmail all"_s,
       [] {
         return sendTestEmail(c1, {email, u"m1"_s, l1, 2, u"v1"_s, u"S"_s, u"B"_s});
       }},
      {u"testEmailState"_s, [] { return testEmailState(u"t?1"_s); }},
      {u"checkCampaign"_s, [] { return checkCampaign(c1); }},
      {u"launchCampaign"_s, [] { return launchCampaign(c1, {true}); }},
      {u"launchCampaign unconfirmed"_s, [] { return launchCampaign(c1, {}); }},
      {u"pauseCampaign"_s, [] { return pauseCampaign(c1); }},
      {u"duplicateCampaign"_s, [] { return duplicateCampaign(c1); }},
      {u"deleteCampaign"_s, [] { return deleteCampaign(c1, false); }},
      {u"deleteCampaign for good"_s, [] { return deleteCampaign(c1, true); }},
      {u"restoreCampaign"_s, [] { return restoreCampaign(c1); }},
      {u"listSubsequences"_s, [] { return listSubsequences(c1); }},
      {u"createSubsequence"_s,
       [] {
         return createSubsequence(c1, {u"Sub"_s, {{u"later"_s, u"interested"_s}}});
       }},
      {u"spinText"_s,
       [] {
         return spinText({u"Hello"_s, u"subject"_s});
       }},
      {u"listLeads"_s, [] { return listLeads(c1, {}); }},
      {u"listLeads all"_s,
       [] {
         return listLeads(c1, {200, LeadStatus(u"in_review"_s), true, u"a+b/c=="_s});
       }},
      {u"addLeads list"_s,
       [] {
         return addLeads(c1, {AddLeadsBody::List{l1, u"workspace"_s}});
       }},
      {u"addLeads csv"_s,
       [] {
         return addLeads(c1, {AddLeadsBody::Csv{u"email,name\na@b.example,\"A, B\"\n"_s, u"a.csv"_s, u"campaign"_s}});
       }},
      {u"addLeads csv without a name"_s,
       [] {
         return addLeads(c1, {AddLeadsBody::Csv{u"email\n"_s, {}, u"none"_s}});
       }},
      {u"addLeads manual"_s,
       [] {
         return addLeads(
             c1, {AddLeadsBody::Manual{email, {{u"firstName"_s, u"Ana"_s}, {u"Team size"_s, u"9"_s}}, u"none"_s}});
       }},
      {u"addLeads leads"_s,
       [] {
         return addLeads(c1, {AddLeadsBody::Leads{{u"l2"_s, l1}, true}});
       }},
      {u"leadDetail"_s, [] { return leadDetail(c1, u"l#1"_s); }},
      {u"editLeadData"_s,
       [] {
         return editLeadData(c1, l1, {{{u"title"_s, u"CEO"_s}, {u"company"_s, u""_s}}});
       }},
      {u"removeLead"_s, [] { return removeLead(c1, l1, false); }},
      {u"removeLead for good"_s, [] { return removeLead(c1, l1, true); }},
      {u"restoreLeads"_s,
       [] {
         return restoreLeads(c1, {{l1, u"l2"_s}});
       }},
      {u"moveLeads"_s,
       [] {
         return moveLeads(c1, {{l1}, u"c2"_s});
       }},
      {u"bulkLeads"_s,
       [] {
         return bulkLeads(c1, {u"pause"_s, {}});
       }},
      {u"leadLists"_s, [] { return leadLists(false); }},
      {u"leadLists archived"_s, [] { return leadLists(true); }},
      {u"ownLeads"_s, [] { return ownLeads({.leadIds = QList{l1}}); }},
      {u"ownLeads newest"_s, [] { return ownLeads({.limit = 500}); }},
      {u"ownLeads of a search"_s, [] { return ownLeads({.filter = filterBody(search()), .limit = 20}); }},
      {u"searchLeads"_s, [] { return searchLeads({}); }},
      {u"searchLeads all"_s, [] { return searchLeads(search(), u"a+b/c=="_s); }},
      {u"searchLeads of a list"_s,
       [] {
         return searchLeads({{{u"list"_s, u"li1"_s}}, u"used"_s}, QString());
       }},
      {u"leadPools"_s, [] { return leadPools(search()); }},
      {u"leadFacets"_s, [] { return leadFacets(u"title"_s, u"all"_s); }},
      {u"leadFacets typed"_s, [] { return leadFacets(u"niche"_s, u"linkedin"_s, u"in &"_s); }},
      {u"leadTotals"_s, [] { return leadTotals(); }},
      {u"getLead"_s, [] { return getLead(u"l/1 x"_s); }},
      {u"savedSearches"_s, [] { return savedSearches(false); }},
      {u"savedSearches archived"_s, [] { return savedSearches(true); }},
      {u"saveSearch"_s,
       [] {
         return saveSearch({u"US “owners”"_s, {{u"title"_s, u"owner, founder"_s}}});
       }},
      {u"deleteSavedSearch"_s, [] { return deleteSavedSearch(u"s/1"_s, false); }},
      {u"deleteSavedSearch for good"_s, [] { return deleteSavedSearch(u"s1"_s, true); }},
      {u"restoreSavedSearch"_s, [] { return restoreSavedSearch(u"s1"_s); }},
      {u"unlockUsage"_s, [] { return unlockUsage(); }},
      {u"unlockLeads"_s,
       [] {
         return unlockLeads({.leadIds = QList{l1, u"l2"_s}});
       }},
      {u"unlockLeads of a search"_s, [] { return unlockLeads({.filter = filterBody(search()), .limit = 20}); }},
      {u"createLeadList"_s, [] { return createLeadList({.name = u"Fair"_s, .description = u""_s}); }},
      {u"createLeadList filled"_s,
       [] {
         return createLeadList({.name = u"Fair"_s,
                                .filter = filterBody({{{u"qin"_s, u"title"_s}}, {}}),
                                .limit = 100000,
                                .exact = false,
                                .skipInLists = true,
                                .skipInCampaigns = true});
       }},
      {u"updateLeadList"_s, [] { return updateLeadList(u"li/1"_s, {.name = u"Fair"_s}); }},
      {u"updateLeadList all"_s,
       [] {
         return updateLeadList(u"li1"_s, {u"Fair"_s, u""_s});
       }},
      {u"deleteLeadList"_s, [] { return deleteLeadList(u"li1"_s, false); }},
      {u"deleteLeadList for good"_s, [] { return deleteLeadList(u"li1"_s, true); }},
      {u"restoreLeadList"_s, [] { return restoreLeadList(u"li1"_s); }},
      {u"addToLeadList"_s,
       [] {
         return addToLeadList(u"li1"_s, {.leadIds = QList{l1, u"l2"_s}});
       }},
      {u"removeFromLeadList"_s,
       [] {
         return removeFromLeadList(u"li1"_s, {{l1, u"l2"_s}});
       }},
      {u"exportLeadList"_s, [] { return exportLeadList(u"li/1"_s); }},
      {u"exportLeadList newest"_s, [] { return exportLeadList(u"li1"_s, 50); }},
      {u"exportTickedLeads"_s,
       [] {
         return exportTickedLeads({u"li1"_s, {l1}});
       }},
      {u"leadImports"_s, [] { return leadImports(); }},
      {u"startCsvImport"_s,
       [] {
         return startCsvImport({u"a.csv"_s, u"email\na@b.example\n"_s, {u"email"_s}, {}, {}});
       }},
      {u"startCsvImport into a list"_s,
       [] {
         return startCsvImport({u"a.csv"_s, u"Email;x\n"_s, {u"email"_s, u"extra"_s}, u"li1"_s, {}});
       }},
      {u"startCsvImport into a new list"_s,
       [] {
         return startCsvImport({u"a.csv"_s, {}, {u"email"_s}, {}, u"Fair"_s});
       }},
      {u"cancelLeadImport"_s, [] { return cancelLeadImport(u"i/1"_s); }},
      {u"campaignActivity"_s, [] { return campaignActivity(c1, 30, {}); }},
      {u"campaignActivity further"_s, [] { return campaignActivity(c1, 30, u"n"_s); }},
      {u"campaignMessages"_s, [] { return campaignMessages(c1); }},
      {u"analyticsSummary"_s, [] { return analyticsSummary(u"2026-03-01"_s, u"2026-11-21"_s); }},
      {u"analyticsSummary filtered"_s,
       [] { return analyticsSummary(u"2026-03-01"_s, u"2026-11-21"_s, c1, u"m1"_s, u"q3"_s); }},
      {u"analyticsOverview"_s, [] { return analyticsOverview(u"2026-10-25"_s, u"2026-11-21"_s); }},
      {u"warmupHealth"_s, [] { return warmupHealth(); }},
      {u"dashboard"_s, [] { return dashboard(); }},
      {u"authMethods"_s, [] { return authMethods(); }},
      {u"checkEmail"_s, [] { return checkEmail(email); }},
      {u"signInWithPassword"_s, [] { return signInWithPassword(email, u" p\"ß "_s); }},
      {u"startEmail"_s, [] { return startEmail(email); }},
      {u"verifyEmail"_s, [] { return verifyEmail(email, u"012345"_s); }},
      {u"exchangeToken"_s,
       [] {
         return exchangeToken(u"c"_s, u"v"_s, {u"desk"_s, u"m"_s, u"macOS 12.0"_s, u"0.1.0"_s});
       }},
      {u"me"_s, [] { return me(); }},
      {u"unreadCounts"_s, [] { return unreadCounts(); }},
      {u"setCurrentWorkspace"_s, [] { return setCurrentWorkspace(u"northgate"_s); }},
      {u"getWorkspace"_s, [] { return getWorkspace(); }},
      {u"updateWorkspace nothing"_s, [] { return updateWorkspace({}, {}); }},
      {u"updateWorkspace all"_s,
       [] {
         return updateWorkspace({u"N"_s, u"Europe/Berlin"_s, 0, false}, 3);
       }},
      {u"deleteWorkspace"_s, [] { return deleteWorkspace(); }},
      {u"listMembers"_s, [] { return listMembers(); }},
      {u"changeRole"_s, [] { return changeRole(u"u/1 x"_s, Role(u"viewer"_s)); }},
      {u"removeMember"_s, [] { return removeMember(u"u/1 x"_s); }},
      {u"listInvites"_s, [] { return listInvites(); }},
      {u"invite"_s,
       [] {
         return invite({u"Ana@a.example"_s, Role(u"admin"_s)});
       }},
      {u"revokeInvite"_s, [] { return revokeInvite(u"i/1"_s); }},
      {u"createClientWorkspace"_s,
       [] {
         return createClientWorkspace({u"Pia"_s, u"pia@c.example"_s, u"Caldera"_s});
       }},
      {u"logOut"_s, [] { return logOut(); }},
  };
  return all;
}

QJsonObject fixture() {
  static const QJsonObject cases = QJsonDocument::fromJson(readFixture(u"requests.json"_s)).object();
  return cases;
}

QList<QueryItem> queryOf(const QJsonArray& items) {
  QList<QueryItem> query;
  for (const auto& item : items) query.append({item[0].toString(), item[1].toString()});
  return query;
}

}  // namespace

class RequestsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void everyCaseHasItsCall() {
    QStringList called;
    for (const auto& [name, build] : builders()) called.append(name);
    QCOMPARE(called, fixture().keys());
  }

  void isBuiltAsExpected_data() {
    QTest::addColumn<QString>("name");
    for (const auto& [name, build] : builders()) QTest::newRow(qPrintable(name)) << name;
  }
  void isBuiltAsExpected() {
    QFETCH(QString, name);
    const QJsonObject expected = fixture()[name].toObject();
    const auto [request, answer] = builders().at(name)();
    QCOMPARE(request.label(), expected["request"_L1].toString());
    QCOMPARE(answer, expected["answer"_L1].toString());
    QVERIFY(request.query == queryOf(expected["query"_L1].toArray()));
    const auto body = expected["body"_L1];
    QCOMPARE(request.body.value_or("none"),
             body.isUndefined() ? "none"_ba : QJsonDocument(body.toObject()).toJson(QJsonDocument::Compact));
    QCOMPARE(request.ifMatch.value_or(-1), expected["ifMatch"_L1].toInteger(-1));
    QCOMPARE(request.timeout, std::chrono::milliseconds(60000));
    QCOMPARE(request.answerAtMost, expected["megabytes"_L1].toInteger(16) << 20);
  }

  void everyChangeHasAFreshKey_data() { isBuiltAsExpected_data(); }
  void everyChangeHasAFreshKey() {
    QFETCH(QString, name);
    static const QRegularExpression uuid(
        QRegularExpression::anchoredPattern(u"[0-9a-f]{8}-[0-9a-f]{4}-4[0-9a-f]{3}-[89ab][0-9a-f]{3}-[0-9a-f]{12}"_s));
    const APIRequest first = builders().at(name)().request, second = builders().at(name)().request;
    QCOMPARE(first.idempotencyKey.has_value(), first.method != HTTPMethod::get);
    if (!first.idempotencyKey) return;
    QVERIFY2(uuid.match(*first.idempotencyKey).hasMatch(), qPrintable(*first.idempotencyKey));
    QVERIFY(first.idempotencyKey != second.idempotencyKey);
  }
};

QTEST_APPLESS_MAIN(RequestsTest)
#include "requests_test.moc"

#include "app/campaigns/LeadAdding.h"

#include <QFileInfo>

#include "app/base/Actions.h"
#include "app/base/EmailAddress.h"
#include "app/campaigns/LeadRows.h"
#include "kit/api/Format.h"
#include "kit/api/wholeNumber.h"
#include "kit/async/background.h"
#include "kit/models/campaigns/campaignLeadRequests.h"

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace orv {
namespace {

/// The service takes this many ids in one request.
constexpr qsizetype blockSize = 1000;
constexpr int mostAtATime = 100'000;
constexpr auto watchInterval = 100ms;

QString megabytes(qint64 bytes) { return QString::number(double(bytes) / (1024 * 1024), 'f', 1) + u" MB"_s; }

/// Raised where the reason is the file's, not the service's.
struct FileTrouble {
  QString reason;
};

void addTo(AddLeadsResult& sum, const AddLeadsResult& more) {
  sum.added += more.added;
  sum.skipped.alreadyInCampaign += more.skipped.alreadyInCampaign;
  sum.skipped.inOtherCampaign += more.skipped.inOtherCampaign;
  sum.skipped.inList += more.skipped.inList;
  sum.skipped.suppressed += more.skipped.suppressed;
  sum.skipped.invalid += more.skipped.invalid;
  sum.skipped.duplicateInFile += more.skipped.duplicateInFile;
  sum.total += more.total;
}

QString headline(const AddLeadsResult& result) {
  return result.added == 0 ? u"No leads added"_s : countedLeads(result.added) + u" added"_s;
}

}  // namespace

LeadAdding::LeadAdding(CampaignContext& context, std::function<void()> added)
    : m_context(context),
      m_added(std::move(added)),
      m_lists(
          context.services.clock, [&context] { return context.api.send(Requests::leadLists(false)); },
          [](const LeadListPage& page) { return page.items.isEmpty(); }) {
  connect(&m_lists, &ResourceBase::changed, this, &LeadAdding::listsChanged);
}

LeadAdding::~LeadAdding() { forgetFile(); }

QString LeadAdding::title() const {
  if (m_result) return headline(*m_result);
  if (m_way == "list"_L1) return u"Add leads from a list"_s;
  if (m_way == "csv"_L1) return u"Add leads from a CSV file"_s;
  return m_way == "leads"_L1 ? u"Add leads you already have"_s : u"Add a lead"_s;
}

QString LeadAdding::submitLabel() const {
  if (m_result) return u"Done"_s;
  return m_way == "manual"_L1 ? u"Add lead"_s : u"Add leads"_s;
}

bool LeadAdding::canSubmit() const {
  if (busy()) return false;
  if (m_result) return true;
  if (m_way == "manual"_L1) return !m_email.trimmed().isEmpty();
  if (m_way == "list"_L1) return !m_listId.isEmpty();
  if (m_way == "csv"_L1) return !fileLooking() && !m_preview.headers.isEmpty();
  return ownLimitError().isEmpty();
}

void LeadAdding::setDedupe(const QString& rule) {
  m_dedupe = rule;
  Q_EMIT changed();
}

void LeadAdding::setEmail(const QString& email) {
  m_email = email;
  m_emailError.clear();
  Q_EMIT changed();
}

QVariantList LeadAdding::listOptions() const {
  QVariantList options;
  if (!m_lists.value()) return options;
  for (const LeadList& list : m_lists.value()->items)
    options.append(
        QVariantMap{{u"key"_s, list.id}, {u"label"_s, list.name}, {u"detail"_s, countedLeads(list.leadCount)}});
  return options;
}

void LeadAdding::setListId(const QString& id) {
  m_listId = id;
  Q_EMIT changed();
}

QString LeadAdding::fileName() const { return QFileInfo(m_path).fileName(); }

QString LeadAdding::fileFacts() const {
  if (m_preview.headers.isEmpty()) return {};
  return megabytes(m_preview.bytes) + u" · "_s + Format::counted(m_preview.headers.size(), u"column"_s, u"columns"_s);
}

QString LeadAdding::fileWarning() const {
  const auto isEmail = [](const QString& header) { return header.contains("email"_L1, Qt::CaseInsensitive); };
  if (m_preview.headers.isEmpty() || std::ranges::any_of(m_preview.headers, isEmail)) return {};
  return u"No column is called email. Leads without an address are left out."_s;
}

QVariantList LeadAdding::fileSamples() const {
  QVariantList samples;
  for (const QStringList& row : m_preview.samples) samples.append(QVariant(row));
  return samples;
}

void LeadAdding::setOwnLimit(const QString& limit) {
  m_ownLimit = limit;
  Q_EMIT changed();
}

/// Nothing when the text is no number from 1 to what goes at a time; that number for an empty one.
std::optional<qint64> LeadAdding::ownCount() const {
  const QString text = m_ownLimit.trimmed();
  if (text.isEmpty()) return mostAtATime;
  return wholeNumber(text, 1, mostAtATime);
}

QString LeadAdding::ownLimitError() const {
  return ownCount() ? QString() : u"A whole number from 1 to "_s + Format::grouped(mostAtATime);
}

void LeadAdding::setAllowOtherCampaigns(bool allowed) {
  m_allowOthers = allowed;
  Q_EMIT changed();
}

QString LeadAdding::progressText() const { return busy() ? m_stage.text : QString(); }

double LeadAdding::progress() const {
  const qint64 done = m_watch ? m_watch->bytes.load() : m_stage.done;
  return m_stage.all > 0 ? double(done) / double(m_stage.all) : -1;
}

QStringList LeadAdding::resultLines() const {
  QStringList lines;
  if (!m_result) return lines;
  const auto tell = [&lines](qint64 count, const QString& one, const QString& many) {
    if (count > 0) lines.append(Format::counted(count, one, many));
  };
  const auto& skipped = m_result->skipped;
  tell(skipped.alreadyInCampaign, u"was in this campaign already"_s, u"were in this campaign already"_s);
  tell(skipped.inOtherCampaign, u"is in another campaign"_s, u"are in another campaign"_s);
  tell(skipped.inList, u"is in another list"_s, u"are in another list"_s);
  tell(skipped.suppressed, u"is on the block list and never gets an email"_s,
       u"are on the block list and never get an email"_s);
  tell(skipped.invalid, u"has no valid email address"_s, u"have no valid email address"_s);
  tell(skipped.duplicateInFile, u"came more than once"_s, u"came more than once"_s);
  return lines;
}

void LeadAdding::show(const QString& way) {
  m_shown = true;
  if (!busy()) {
    m_way = way;
    startAnew();
    if (way == "list"_L1) m_lists.load();
  }
  Q_EMIT changed();
}

void LeadAdding::startAnew() {
  m_result.reset();
  m_error.clear();
  m_emailError.clear();
  m_email.clear();
  m_fields.clear();
  m_listId.clear();
  m_path.clear();
  m_preview = {};
  m_look.cancel();
  m_looking = false;
  m_ownLimit.clear();
  m_allowOthers = false;
  m_dedupe = u"campaign"_s;
  Q_EMIT fileChanged();
}

Task<void> LeadAdding::chooseFileTask() {
  const auto path = co_await m_context.services.filePanel.openFile(u"Comma-separated text"_s, u"csv"_s);
  if (path) setFile(*path);
}

void LeadAdding::setFile(const QString& path) {
  if (busy() || m_way != "csv"_L1 || m_result) return;
  m_path = path;
  m_preview = {};
  m_error.clear();
  m_looking = true;
  m_look.start(look(path));
  Q_EMIT fileChanged();
  Q_EMIT changed();
}

Task<void> LeadAdding::look(QString path) {
  m_preview = co_await inBackground<LeadFilePreview>([path] { return previewLeadFile(path); });
  m_error = m_preview.error;
  m_looking = false;
  Q_EMIT fileChanged();
  Q_EMIT changed();
}

void LeadAdding::submit() {
  if (!canSubmit()) return;
  if (m_result) return dismiss();
  if (m_way == "manual"_L1 && !isEmailAddress(m_email.trimmed())) {
    m_emailError = u"Enter a valid email address."_s;
    Q_EMIT changed();
    return;
  }
  m_error.clear();
  m_soFar = {};
  m_busy = true;
  m_work.start(work(m_way));
  Q_EMIT changed();
}

Task<void> LeadAdding::work(QString way) {
  std::optional<QString> reason;
  AddLeadsResult result;
  bool isUncertain = false;
  try {
    if (way == "csv"_L1) {
      result = co_await addFile();
    } else if (way == "leads"_L1) {
      result = co_await addOwn();
    } else {
      setStage(u"Adding…"_s, 0, 0);
      AddLeadsBody body{AddLeadsBody::List{m_listId, m_dedupe}};
      if (way == "manual"_L1) {
        auto data = m_fields;
        for (auto it = data.begin(); it != data.end();) it = it->trimmed().isEmpty() ? data.erase(it) : std::next(it);
        body.source = AddLeadsBody::Manual{m_email.trimmed(), data, m_dedupe};
      }
      result = co_await m_context.api.send(Requests::addLeads(m_context.id, body));
    }
  } catch (const FileTrouble& trouble) {
    reason = trouble.reason;
  } catch (const APIError& error) {
    reason = error.message();
    isUncertain = Actions::outcomeIsUnknown(error);
  }
  forgetFile();
  m_busy = false;
  reason ? fail(*reason) : finish(result);
  if (!reason || isUncertain || m_soFar.added > 0) m_added();
}

Task<AddLeadsResult> LeadAdding::addFile() {
  m_watch = std::make_shared<FileWatch>();
  setStage(u"Reading "_s + fileName() + u"…"_s, 0, m_preview.bytes);
  m_ticker.start(watchFile());
  LeadUpload upload =
      co_await inBackground<LeadUpload>([id = m_context.id, path = m_path, dedupe = m_dedupe, watch = m_watch] {
        return packLeadFile(id, path, dedupe, *watch);
      });
  if (!upload.request) throw FileTrouble{upload.error};
  const qint64 size = upload.request->body->size();
  m_watch->bytes = 0;
  upload.request->sent = {m_watch, &m_watch->bytes};
  setStage(u"Sending "_s + fileName() + u", "_s + megabytes(size) + u"…"_s, 0, size);
  co_return co_await m_context.api.send(std::move(*upload.request));
}

Task<void> LeadAdding::watchFile() {
  while (true) {
    co_await m_context.services.clock.sleep(watchInterval);
    Q_EMIT changed();
  }
}

void LeadAdding::forgetFile() {
  if (m_watch) m_watch->stopped = true;
  m_watch.reset();
  m_ticker.cancel();
}

Task<AddLeadsResult> LeadAdding::addOwn() {
  setStage(u"Looking up your leads…"_s, 0, 0);
  const bool allowOthers = m_allowOthers;
  const OwnLeads own = co_await m_context.api.send(Requests::ownLeads({std::nullopt, ownCount()}));
  for (qsizetype at = 0; at < own.ids.size(); at += blockSize) {
    setStage(Format::grouped(at) + u" of "_s + countedLeads(own.ids.size()) + u" sent"_s, at, own.ids.size());
    const AddLeadsBody::Leads block{own.ids.mid(at, blockSize), allowOthers};
    addTo(m_soFar, co_await m_context.api.send(Requests::addLeads(m_context.id, {block})));
  }
  co_return m_soFar;
}

void LeadAdding::setStage(const QString& text, qint64 done, qint64 all) {
  m_stage = {text, done, all};
  Q_EMIT changed();
}

void LeadAdding::finish(const AddLeadsResult& result) {
  m_result = result;
  if (!m_shown)
    m_context.services.toasts.show(headline(result), Toasts::Tone::success, u"Details"_s, [store = QPointer(this)] {
      if (!store || !store->m_result) return;
      store->m_shown = true;
      Q_EMIT store->changed();
    });
  Q_EMIT changed();
}

void LeadAdding::fail(const QString& reason) {
  m_error = reason;
  if (m_soFar.added > 0) m_error += u" Before that, "_s + headline(m_soFar) + u'.';
  if (!m_shown) m_context.services.toasts.show(u"Couldn’t add the leads"_s, Toasts::Tone::error, {}, {}, m_error);
  Q_EMIT changed();
}

void LeadAdding::stop() {
  if (!busy()) return;
  forgetFile();
  m_work.cancel();
  m_busy = false;
  m_error = u"Stopped. Leads that were taken by then are in the campaign."_s;
  Q_EMIT changed();
  m_added();
}

void LeadAdding::dismiss() {
  if (!std::exchange(m_shown, false)) return;
  m_lists.cancel();
  Q_EMIT changed();
}

void LeadAdding::close() {
  forgetFile();
  m_lists.cancel();
  m_look.cancel();
  m_work.cancel();
  m_busy = m_looking = false;
  Store::close();
}

}  // namespace orv

#include "ui/campaigns/EmailText.h"

#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QScopedValueRollback>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextLayout>

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

/// The text with one line feed between lines. QTextDocument::toPlainText() would also turn no-break spaces into plain
/// ones.
QString textOf(const QTextDocument& document) {
  QString text = document.toRawText();
  return text.replace(QChar::ParagraphSeparator, u'\n');
}

FormatCommand commandOf(const QString& name) {
  if (name == "bold"_L1) return FormatCommand::bold;
  if (name == "italic"_L1) return FormatCommand::italic;
  if (name == "bullets"_L1) return FormatCommand::bullets;
  if (name == "numbers"_L1) return FormatCommand::numbers;
  return name == "link"_L1 ? FormatCommand::link : FormatCommand::spinText;
}

QTextCharFormat inked(const QColor& ink, const QColor& ground) {
  QTextCharFormat format;
  format.setForeground(ink);
  format.setProperty(EmailText::groundProperty, ground);
  return format;
}

}  // namespace

void EmailText::setDocument(QQuickTextDocument* document) {
  if (m_quickDocument == document) return;
  if (m_document) m_document->disconnect(this);
  m_quickDocument = document;
  m_document = document ? document->textDocument() : nullptr;
  if (m_document) {
    connect(m_document, &QTextDocument::contentsChange, this, &EmailText::takeText);
    show(m_text);
  }
  Q_EMIT documentChanged();
}

void EmailText::setColour(QColor& colour, const QColor& value) {
  if (colour == value) return;
  colour = value;
  highlight();
  Q_EMIT coloursChanged();
}

void EmailText::show(const QString& text, const QString& before) {
  const bool wasEmpty = isEmpty();
  m_text = before.isEmpty() || !m_document ? text : before;
  m_shown = withLineFeeds(m_text);
  if (m_document) {
    const QScopedValueRollback showing(m_showing, true);
    m_document->setPlainText(m_shown);
    highlight();
  }
  if (wasEmpty != isEmpty()) Q_EMIT isEmptyChanged();
  replaceAll(text);
}

void EmailText::replaceAll(const QString& text) {
  // What both begin and end with stays, and with it the place that the person was reading.
  if (m_document && text != m_text) apply(difference(m_shown, withLineFeeds(text)));
}

QPointF EmailText::apply(const TextEdit& edit) {
  if (!m_document) return {};
  QTextCursor cursor(m_document);
  cursor.beginEditBlock();
  cursor.setPosition(int(edit.start));
  cursor.setPosition(int(edit.start + edit.length), QTextCursor::KeepAnchor);
  cursor.insertText(edit.text);
  cursor.endEditBlock();
  return {double(edit.selectionStart), double(edit.selectionEnd)};
}

QPointF EmailText::format(const QString& command, int selectionStart, int selectionEnd) {
  return apply(formatEdit(commandOf(command), m_shown, selectionStart, selectionEnd));
}

QPointF EmailText::insertVariable(const QString& name, int selectionStart, int selectionEnd) {
  return apply(variableEdit(m_shown, selectionStart, selectionEnd, name));
}

QVariant EmailText::typedVariable(int cursor) const {
  const auto typed = variableBeingTyped(m_shown, cursor);
  return typed ? QVariant(typed->name) : QVariant();
}

void EmailText::finishComposing(QObject* control) {
  QInputMethod* method = QGuiApplication::inputMethod();
  method->commit();
  const QString left = control->property("preeditText").toString();
  if (left.isEmpty()) return;
  // Not every input method does as it is told.
  method->reset();
  QInputMethodEvent event;
  event.setCommitString(left);
  QCoreApplication::sendEvent(control, &event);
}

void EmailText::takeText() {
  if (m_colouring) return;
  QString shown = textOf(*m_document);
  if (m_showing || shown == m_shown) return highlight();
  if (m_singleLine && shown.contains(u'\n')) {
    // Not from within the change itself, which is still being told to everybody.
    QMetaObject::invokeMethod(this, &EmailText::joinLines, Qt::QueuedConnection);
    return;
  }
  const bool wasEmpty = isEmpty();
  m_text = followed(m_text, m_shown, shown);
  m_shown = std::move(shown);
  highlight();
  if (wasEmpty != isEmpty()) Q_EMIT isEmptyChanged();
  Q_EMIT edited(m_text);
}

/// A subject is one line, whatever was pasted.
void EmailText::joinLines() {
  if (!m_document || m_document->blockCount() < 2) return;
  QTextCursor cursor(m_document);
  cursor.joinPreviousEditBlock();
  for (QTextBlock block = m_document->begin(); block.next().isValid(); block = m_document->begin()) {
    cursor.setPosition(block.position() + block.length() - 1);
    cursor.deleteChar();
    cursor.insertText(u" "_s);
  }
  cursor.endEditBlock();
}

/// Lays the colours over the layout, beside the text: they are no edit, and undo knows nothing of them.
void EmailText::highlight() {
  if (!m_document) return;
  const QScopedValueRollback colouring(m_colouring, true);
  const QList<TextMark> marks = marksIn(m_shown);
  auto mark = marks.begin();
  for (QTextBlock block = m_document->begin(); block.isValid(); block = block.next()) {
    const qsizetype start = block.position(), end = start + block.length();
    while (mark != marks.end() && mark->start + mark->length <= start) ++mark;
    QList<QTextLayout::FormatRange> ranges;
    for (auto here = mark; here != marks.end() && here->start < end; ++here) {
      const qsizetype from = std::max(here->start, start), to = std::min(here->start + here->length, end - 1);
      const bool isVariable = here->kind == TextMark::Kind::variable;
      ranges.append({int(from - start), int(to - from),
                     isVariable ? inked(m_variableInk, m_variableGround) : inked(m_spinInk, m_spinGround)});
    }
    // While a character is being composed the layout's formats are the input method's.
    if (!block.layout()->preeditAreaText().isEmpty() || block.layout()->formats() == ranges) continue;
    block.layout()->setFormats(ranges);
    m_document->markContentsDirty(block.position(), block.length());
  }
  Q_EMIT marked();
}

}  // namespace orv

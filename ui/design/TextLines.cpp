#include "ui/design/TextLines.h"

#include <QScopedValueRollback>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

namespace orv {

void TextLines::setDocument(QQuickTextDocument* document) {
  if (m_quickDocument == document) return;
  if (m_document) m_document->disconnect(this);
  m_quickDocument = document;
  m_document = document ? document->textDocument() : nullptr;
  if (m_document) connect(m_document, &QTextDocument::contentsChanged, this, &TextLines::apply);
  apply();
  Q_EMIT documentChanged();
}

void TextLines::setText(const QString& text) {
  if (std::exchange(m_writes, true) && m_text == text) return;
  m_text = text;
  write();
  Q_EMIT textChanged();
}

void TextLines::setHeight(double height) {
  if (m_height == height) return;
  m_height = height;
  apply();
  Q_EMIT heightChanged();
}

void TextLines::componentComplete() {
  m_complete = true;
  m_writes ? write() : apply();
}

void TextLines::write() {
  if (!m_document || !m_complete) return;
  format([this](QTextCursor& cursor, const QTextBlockFormat& format) {
    cursor.beginEditBlock();
    cursor.setBlockFormat(format);
    cursor.insertText(m_text);
    cursor.endEditBlock();
  });
}

// Lines that are typed or pasted take the height of those around them, so only another text lacks it, and nothing of
// that can be undone yet.
void TextLines::apply() {
  if (!m_document || !m_complete || m_height <= 0 || m_applying) return;
  if (m_document->firstBlock().blockFormat().lineHeight() == m_height) return;
  format([](QTextCursor& cursor, const QTextBlockFormat& format) { cursor.mergeBlockFormat(format); });
}

void TextLines::format(const std::function<void(QTextCursor&, const QTextBlockFormat&)>& edit) {
  const QScopedValueRollback applying(m_applying, true);
  const bool undoable = m_document->isUndoRedoEnabled();
  m_document->setUndoRedoEnabled(false);
  QTextBlockFormat format;
  if (m_height > 0) format.setLineHeight(m_height, QTextBlockFormat::FixedHeight);
  QTextCursor cursor(m_document);
  cursor.select(QTextCursor::Document);
  edit(cursor, format);
  m_document->setUndoRedoEnabled(undoable);
}

}  // namespace orv

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

void TextLines::setHeight(double height) {
  if (m_height == height) return;
  m_height = height;
  apply();
  Q_EMIT heightChanged();
}

// Lines that are typed or pasted take the height of those around them, so only another text lacks it, and nothing of
// that can be undone yet.
void TextLines::apply() {
  if (!m_document || m_height <= 0 || m_applying || m_document->firstBlock().blockFormat().lineHeight() == m_height)
    return;
  const QScopedValueRollback applying(m_applying, true);
  const bool undoable = m_document->isUndoRedoEnabled();
  m_document->setUndoRedoEnabled(false);
  QTextBlockFormat format;
  format.setLineHeight(m_height, QTextBlockFormat::FixedHeight);
  QTextCursor cursor(m_document);
  cursor.select(QTextCursor::Document);
  cursor.mergeBlockFormat(format);
  m_document->setUndoRedoEnabled(undoable);
}

}  // namespace orv

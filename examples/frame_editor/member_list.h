#pragma once

#include <QListWidget>

namespace frame_editor {

class Document;

/// The members by name, for picking the ones to edit.
class MemberList : public QListWidget
{
    Q_OBJECT
public:
    MemberList(Document& document, QWidget* parent);

    /// A few rows: what stands below the list is to be seen whole.
    QSize sizeHint() const override;

private:
    void showMembers();
    void showSelection();
    void takeSelection();

    Document& m_document;
    bool m_showing = false; ///< the list follows the document, and not the other way round
};

} // namespace frame_editor

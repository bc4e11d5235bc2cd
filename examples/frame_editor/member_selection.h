#pragma once

#include <QObject>
#include <QVector>

namespace frame_editor {

/// Which members are selected: the one selection that all views of a document show and change.
/// Members go by their index in the model and stand in ascending order, each once.
class MemberSelection : public QObject
{
    Q_OBJECT
public:
    explicit MemberSelection(QObject* parent);

    const QVector<int>& members() const;
    bool contains(int member) const;
    bool isEmpty() const;

    /// Replaces the selection; emits changed() if that makes a difference.
    void set(const QVector<int>& members);
    void clear();

Q_SIGNALS:
    void changed();

private:
    QVector<int> m_members;
};

} // namespace frame_editor

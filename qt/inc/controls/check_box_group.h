#pragma once

#include "platform/export.h"
#include "qt/inc/controls/multi_edit_control_base.h"

#include <QObject>
#include <QString>

#include <cstddef>
#include <deque>
#include <string>

class QWidget;

namespace zel {
struct KeyValueStorage;
}

namespace zel::qt {

class ILayouter;
class MultiEditCheckBox;

/// Related check boxes with one more, labelled "All", that shows and sets all the others at once.
/// No widget itself: the check boxes are children of the widget given to the constructor.
///
/// For a selection the host calls reset(), then readValue() for each object and index, then
/// onEndRead(). Indexes go from 0 to size() - 1; another one reports the assertion
/// "idx < m_checks.size()" and throws std::out_of_range. setEnabled() throws without a report.
class ZEL_QT_EXPORT MultiEditCheckBoxGroup : public QObject
{
    Q_OBJECT
public:
    /// Makes the check boxes and "All" as children of `parent`. The caller owns the group.
    /// @param layouter places the boxes, "All" last; needed during construction only. The caller
    ///        has run onCreate() on it and runs onFinish().
    /// @param labels one box for each; an empty label is a placeholder that fills a place of the
    ///        layout and gets no index
    /// @param tooltips by position in `labels`; may be shorter
    MultiEditCheckBoxGroup(QWidget* parent, ILayouter& layouter, const std::deque<QString>& labels,
                           const std::deque<QString>& tooltips);
    ~MultiEditCheckBoxGroup() override;

    /// The number of check boxes, without "All" and without placeholders.
    std::size_t size() const;

    /// Passes the value of one more object to a box. "All" waits for onEndRead().
    void readValue(std::size_t idx, bool value);
    /// Gives a box a single value, as MultiEditCheckBox::setChecked() does; the group passes its
    /// signals on.
    void setValue(std::size_t idx, bool value);
    /// The shown state of a box; true while its values vary.
    bool getValue(std::size_t idx) const;
    bool dataVaries(std::size_t idx) const;
    /// Resets every box but "All", which follows with the next onEndRead().
    void reset();
    /// Brings "All" up to date. Called after the last readValue().
    void onEndRead();

    void setEnabled(std::size_t idx, bool enabled);
    /// Enables or disables every box but "All". "All" neither shows nor sets disabled boxes.
    void setEnabled(bool enabled);

    /// Makes each box one that can be saved, under `key`, "/" and its index. A varying box writes
    /// nothing. Loading is silent until the last box has loaded; then each box but that last one
    /// emits its valueChanged().
    void setCanBeSaved(const std::string& key);

Q_SIGNALS:
    /// A box changed; once for a click on "All".
    void valueChanged();

private Q_SLOTS:
    void onClickedAny();
    void onClickedToggleAll();

private:
    std::size_t lastIndex() const;
    MultiEditCheckBox& check(std::size_t idx) const;
    void _updateCheckAllBox();
    void load(std::size_t idx, const KeyValueStorage& storage);

    std::deque<MultiEditCheckBox*> m_checks;
    MultiEditCheckBox* m_toggleAll;
    std::size_t m_loadedCount = 0;
};

} // namespace zel::qt

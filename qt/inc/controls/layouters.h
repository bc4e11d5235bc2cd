#pragma once

#include "platform/export.h"
#include "qt/inc/controls/expand_direction.h"

#include <QString>

#include <boost/noncopyable.hpp>

class QGridLayout;
class QHBoxLayout;
class QVBoxLayout;
class QWidget;

namespace zel::qt {

/// Decides where a group of controls goes, so that who makes the controls need not know whether
/// they stand in a column, a row or a grid.
///
/// A layouter serves one container: onCreate() once with the container, onAdd() once for each
/// control, onFinish() once at the end. It owns nothing: the layout belongs to the container and
/// the controls to the widget tree. Adding before onCreate() is an error: it reports the assertion
/// "m_layout" and places nothing.
class ZEL_QT_EXPORT ILayouter : private boost::noncopyable
{
public:
    virtual ~ILayouter();

    /// Installs the layout on `container`. A second call goes on with a layout on the new
    /// container; a position in a grid is kept.
    virtual void onCreate(QWidget* container) = 0;
    /// Places the next control.
    virtual void onAdd(QWidget* widget) = 0;
    /// Ends the layout. Does nothing by default.
    virtual void onFinish();

protected:
    ILayouter();
};

/// A column with margin 4 and no spacing. The controls pack at the top.
class ZEL_QT_EXPORT VBoxLayouter : public ILayouter
{
public:
    VBoxLayouter();
    ~VBoxLayouter() override;

    void onCreate(QWidget* container) override;
    void onAdd(QWidget* widget) override;
    void onFinish() override;

    /// Null before onCreate().
    QVBoxLayout* layout() const;

private:
    QVBoxLayout* m_layout = nullptr;
};

/// A row with margin 4 and no spacing. The controls pack at the left.
class ZEL_QT_EXPORT HBoxLayouter : public ILayouter
{
public:
    HBoxLayouter();
    ~HBoxLayouter() override;

    void onCreate(QWidget* container) override;
    void onAdd(QWidget* widget) override;
    void onFinish() override;

    /// Null before onCreate().
    QHBoxLayout* layout() const;

private:
    QHBoxLayout* m_layout = nullptr;
};

/// A grid with margin 4 and spacing 4 that grows in one direction and never wraps; the other
/// coordinate changes only by setPosition().
class ZEL_QT_EXPORT GridLayouter : public ILayouter
{
public:
    explicit GridLayouter(ExpandDirection direction = ExpandDown);
    ~GridLayouter() override;

    void onCreate(QWidget* container) override;
    void onAdd(QWidget* widget) override;

    /// The number of cells left free behind each control; 0 at first.
    void setCellSkip(int cells);
    /// The cell of the next control; (0, 0) at first. Allowed at any time.
    void setPosition(int row, int column);

    /// Null before onCreate().
    QGridLayout* layout() const;

private:
    QGridLayout* m_layout = nullptr;
    ExpandDirection m_direction;
    int m_row = 0;
    int m_column = 0;
    int m_cellSkip = 0;
};

/// A form of two columns, labels at the left and controls at the right, with the margins and the
/// spacing of the style. The last row and the control column take all free space.
class ZEL_QT_EXPORT PropertyGridLayouter : public ILayouter
{
public:
    PropertyGridLayouter();
    ~PropertyGridLayouter() override;

    void onCreate(QWidget* container) override;
    /// Places a control without a label: the label cell of its row stays free.
    void onAdd(QWidget* widget) override;
    /// Places a label and behind it the control. The label is made here, as a child of the
    /// container, and names the control for assistive tools unless that has a name already.
    void onAdd(QWidget* widget, const QString& label);
    void onFinish() override;

    /// Null before onCreate().
    QGridLayout* layout() const;

private:
    void _add(QWidget* widget);

    QWidget* m_parent = nullptr;
    QGridLayout* m_layout = nullptr;
    int m_row = 0;
    int m_column = 0;
};

} // namespace zel::qt

#pragma once

#include "qt/inc/controls.h"
#include "tests/helpers/any_compare.h"

#include <QLineEdit>
#include <QListView>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

namespace zel::test {

/// An enum box of a class in a window, and the steps of a user.
template <class Box>
struct EnumBoxFixture
{
    explicit EnumBoxFixture(bool (*eq)(const boost::any&, const boost::any&) = equalInts,
                            const QString& label = {})
        : box(Box::create(&window, label, eq))
        , combo(box->template findChild<ZEL_QT4_ComboBox*>())
        , changed(box, SIGNAL(valueChanged()))
        , activated(box, SIGNAL(activated(int)))
    {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(box);
        box->setValues({{"a", 1}, {"b", 2}, {"c", 3}});
        window.resize(300, 100);
        window.show();
    }

    /// Opens the list and clicks on an item.
    void choose(int index)
    {
        combo->showPopup();
        QAbstractItemView* view = combo->view();
        const QModelIndex item = view->model()->index(index, 0);
        view->scrollTo(item);
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(item).center());
    }

    /// Replaces the text of an editable box.
    void type(const QString& text)
    {
        combo->lineEdit()->selectAll();
        QTest::keyClick(combo, Qt::Key_Delete);
        QTest::keyClicks(combo, text);
    }

    /// Whether the list holds the varies item.
    bool hasVarious() const
    {
        return combo->findText(qt::getVariesString()) >= 0;
    }

    QWidget window;
    Box* box;
    ZEL_QT4_ComboBox* combo;
    QSignalSpy changed;
    QSignalSpy activated;
};

} // namespace zel::test

// What the lists of the pages share: what views are told, and that each list keeps the rules of a model.

#include "vm/dialogs/CloudModels.h"
#include "vm/module1/BoardModels.h"
#include "vm/module1/MergeRoomVm.h"
#include "vm/module1/OpenOccupyVm.h"
#include "vm/module1/RoomCallVm.h"
#include "vm/module1/RoomConsumeVm.h"
#include "vm/module1/RoomListModel.h"
#include "vm/module1/RoomLookups.h"
#include "vm/module1/RoomMenu.h"
#include "vm/module4/AssessModels.h"
#include "vm/module4/PassRecordVm.h"
#include "vm/module4/QueneWaitModel.h"

#include "common/FuncMenuModel.h"

#include <QAbstractItemModelTester>
#include <QtTest>

namespace {

constexpr auto reporting = QAbstractItemModelTester::FailureReportingMode::QtTest;

struct Drink
{
    QString name;
    int num = 0;
    bool isChecked = false;
    bool isSelected = false;
};

using Drinks = RowModel<Drink>;

QVector<Drink> threeDrinks() { return {{"tea", 1}, {"juice", 2, true}, {"water", 3}}; }

/// Notes what a view is told, such as "change 0-2:name,num".
void note(QAbstractItemModel* model, QStringList* told)
{
    const auto noteRows = [=](const char* what) {
        return [=](const QModelIndex&, int first, int last) {
            told->append(QString("%1 %2-%3").arg(what).arg(first).arg(last));
        };
    };
    QObject::connect(model, &QAbstractItemModel::modelReset, [=] { told->append("reset"); });
    QObject::connect(model, &QAbstractItemModel::rowsInserted, noteRows("insert"));
    QObject::connect(model, &QAbstractItemModel::rowsRemoved, noteRows("remove"));
    QObject::connect(model, &QAbstractItemModel::dataChanged,
                     [=](const QModelIndex& first, const QModelIndex& last, const QVector<int>& roles) {
                         QStringList names;
                         for (const int role : roles)
                             names.append(model->roleNames().value(role));
                         noteRows("change")({}, first.row(), last.row());
                         told->last() += ":" + names.join(',');
                     });
}

template <typename Row>
void exercise(RowModel<Row>* model)
{
    const QAbstractItemModelTester tester(model, reporting);
    const QHash<int, QByteArray> roles = model->roleNames();
    const QVector<Row> two(2);
    model->replace(two);
    for (auto role = roles.begin(); role != roles.end(); ++role)
        QVERIFY2(model->data(model->index(1), role.key()).isValid(), role.value());
    const auto is = [&](int row, const char* role) {
        return model->data(model->index(row), roles.key(role)).toBool();
    };
    const bool canBeChecked = roles.values().contains("isChecked");
    const bool canBeSelected = roles.values().contains("isSelected");
    QCOMPARE(model->onChecked(1), canBeChecked);
    QCOMPARE(is(1, "isChecked"), canBeChecked);
    QCOMPARE(model->onSelected(0), canBeSelected);
    QCOMPARE(is(0, "isSelected"), canBeSelected);
    model->refresh(two);
    QVERIFY(!is(1, "isChecked") && !is(0, "isSelected"));
    model->append(Row());
    QVERIFY(model->removeAt(0));
    model->refresh({});
    QCOMPARE(model->rowCount(), 0);
}

/// Rows that the model owns end with it, and replaced ones when the views have moved on.
template <typename Model, typename Make>
void exerciseOwner(Make make)
{
    auto model = std::make_unique<Model>();
    const QAbstractItemModelTester tester(model.get(), reporting);
    auto* first = make();
    auto* second = make();
    const QPointer<QObject> watchedFirst(first);
    const QPointer<QObject> watchedSecond(second);
    model->replaceAll({first});
    for (const int role : model->roleNames().keys())
        QVERIFY2(model->data(model->index(0), role).isValid(), model->roleNames().value(role));
    model->replaceAll({second, make()});
    QCOMPARE(model->rowCount(), 2);
    QVERIFY(watchedFirst);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!watchedFirst && watchedSecond);
    model.reset();
    QVERIFY(!watchedSecond);
}

} // namespace

using Change = std::function<bool(Drinks&)>;
using Test = std::function<void()>;
Q_DECLARE_METATYPE(Change)
Q_DECLARE_METATYPE(Test)

class tst_list_models : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void changes_data();
    void changes();
    void concreteModels_data();
    void concreteModels();
};

void tst_list_models::changes_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<QString>("told");
    const auto row = [](const char* name, const char* told, const Change& change) {
        QTest::newRow(name) << change << told;
    };
    const auto refresh = [](const QVector<Drink>& rows) {
        return [=](Drinks& list) {
            list.refresh(rows);
            return list.rowCount() == rows.size();
        };
    };
    QVector<Drink> others = threeDrinks();
    others[0].num = 9;
    others[2].isSelected = true;
    row("check", "change 1-1:isChecked change 2-2:isChecked", [](auto& list) { return list.onChecked(2); });
    row("check what is checked", "", [](auto& list) { return list.onChecked(1); });
    row("check none such", "", [](auto& list) { return !list.onChecked(3) && !list.onChecked(-1); });
    row("uncheck", "change 1-1:isChecked",
        [](auto& list) { return list.uncheckAll(), list.checkedIndex() < 0; });
    row("select and back", "change 0-0:isSelected change 0-0:isSelected",
        [](auto& list) { return list.onSelected(0) && list.row(0).isSelected && list.onSelected(0); });
    row("select none such", "", [](auto& list) { return !list.onSelected(3) && !list.onSelected(-1); });
    const auto count = [](int at, int num) {
        return [=](auto& list) { return list.changeAt(at, [=](Drink& row) { row.num = num; }) == (at == 2); };
    };
    row("change", "change 2-2:num,text", count(2, 7));
    row("change to the same", "", count(2, 3));
    row("change none such", "", count(3, 7));
    row("change before the first", "", count(-1, 7));
    row("refresh", "change 0-2:num,isSelected,text", refresh(others));
    row("refresh with the same", "", refresh(threeDrinks()));
    row("refresh with fewer", "reset", refresh(others.mid(1)));
    row("refresh with none", "reset", refresh({}));
    row("replace", "reset", [](auto& list) { return list.replace(threeDrinks()), list.rowCount() == 3; });
    row("append", "insert 3-3", [](auto& list) { return list.append({"milk"}), list.row(3).name == "milk"; });
    row("remove", "remove 1-1", [](auto& list) { return list.removeAt(1) && list.row(1).num == 3; });
    row("remove none such", "", [](auto& list) { return !list.removeAt(3) && !list.removeAt(-1); });
}

void tst_list_models::changes()
{
    QFETCH(Change, change);
    Drinks drinks({Drinks::field("name", &Drink::name),
                   Drinks::field("num", &Drink::num),
                   Drinks::field("isChecked", &Drink::isChecked),
                   Drinks::field("isSelected", &Drink::isSelected),
                   {"text", [](const Drink& drink) { return drink.name + QString::number(drink.num); }}});
    const QAbstractItemModelTester tester(&drinks, reporting);
    drinks.replace(threeDrinks());
    QStringList told;
    note(&drinks, &told);
    QVERIFY(change(drinks));
    QTEST(told.join(' '), "told");
}

void tst_list_models::concreteModels_data()
{
    QTest::addColumn<Test>("test");
    const auto row = [](const char* name, const Test& test) { QTest::newRow(name) << test; };
#define MODEL(Model, ...) row(#Model, [] { exercise(std::make_unique<Model>(__VA_ARGS__).get()); })
    MODEL(CardListModel);
    MODEL(CloudLineModel);
    MODEL(FuncMenuModel, QList<ModAuthDto*>());
    MODEL(MenuModel);
    MODEL(OccupyListModel);
    MODEL(PlanListModel);
    MODEL(RoomCallModel);
    MODEL(RoomConsumeModel);
    MODEL(RoomFloorModel);
    MODEL(RoomListModel);
    MODEL(RoomOverTimeModel);
    MODEL(RoomStatusModel);
    MODEL(RoomTypeModel);
    MODEL(TempDataModel);
    MODEL(QueneWaitModel);
    MODEL(CallPassModel);
    MODEL(AssessInfoModel);
#undef MODEL
    row("CanMergeRoomModel",
        [] { exerciseOwner<CanMergeRoomModel>([] { return new CanMergeRoomVm("K", {{}}); }); });
    row("CloudPlatModel", [] {
        const ReqLineDto platform;
        exerciseOwner<CloudPlatModel>([&] { return new CloudLineData(&platform); });
    });
    row("RoomSortListModel",
        [] { exerciseOwner<RoomSortListModel>([] { return new RoomSortVm(RoomSortDto()); }); });
}

void tst_list_models::concreteModels()
{
    QFETCH(Test, test);
    test();
}

QTEST_GUILESS_MAIN(tst_list_models)
#include "tst_list_models.moc"

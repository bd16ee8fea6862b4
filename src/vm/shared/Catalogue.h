#pragma once

#include "common/RowModel.h"
#include "dto/sales/ItemRecords.h"
#include "vm/shared/ActionVm.h"

#include <QTimer>

// What a terminal may sell: areas, their categories, and the items of a category or of a search.

/// An item for sale. Money in yuan.
struct item_struct
{
    QString itemId;
    QString itemName;
    double price = 0;
    QString unit;
    QString img; ///< URL of its picture
    int sellFlg = 0;
    int serverType = 0;
    int is_desk_no = 0;
    qlonglong tagId = 0;
    QString workerType;
    int times = 0;
};

class ItemModel : public RowModel<item_struct>
{
    Q_OBJECT

public:
    explicit ItemModel(QObject* parent = nullptr);

    /// Package tickets are left out.
    void update(const Array<ItemDto*>& items);
};

struct item_type_struct
{
    QString typeName;
    QString typeId;
    bool isChecked = false;
};

class ItemTypeModel : public RowModel<item_type_struct>
{
    Q_OBJECT

public:
    explicit ItemTypeModel(QObject* parent = nullptr);

    void update(const Array<ItemTypeDto*>& types);
};

struct area_struct
{
    QString areaId;
    QString areaName;
};

class AreaListModel : public RowModel<area_struct>
{
    Q_OBJECT

public:
    explicit AreaListModel(QObject* parent = nullptr);

    /// This terminal's work areas; one more first row, of no id, where it bears a name.
    void fill(const QString& none = {});
};

/// Base of the view-models of pages that sell. With a single work area that one is chosen from the start.
class CatalogueVm : public ActionVm
{
    Q_OBJECT
    CONSTANT_PROPERTY(ItemTypeModel*, typeList, m_types)
    CONSTANT_PROPERTY(ItemModel*, itemList, m_items)
    CONSTANT_PROPERTY(AreaListModel*, areaList, m_areas)
    PROPERTY(QString, areaId, setAreaId, {})
    PROPERTY(QString, areaName, setAreaName, {})
    PROPERTY(int, itemColumns, setItemColumns, 8)                  // tiles per row
    PROPERTY(bool, isSmallImgMode, setIsSmallImgMode, false)       // the picture stands beside the text
    PROPERTY(bool, isCatalogueFailed, setIsCatalogueFailed, false) // categories or items couldn't be read

public:
    explicit CatalogueVm(QObject* parent = nullptr);

    /// Loads the area's categories.
    Q_INVOKABLE void selectArea(const QString& id, const QString& name);
    Q_INVOKABLE void getItemTypeApi();
    Q_INVOKABLE void onSelectType(const QString& code);
    Q_INVOKABLE void getItemListApi(const QString& typeId, const QString& firstCode, const QString& barCode);
    /// Items by their initials. The tiles go at once with an empty text.
    Q_INVOKABLE void queryPlu(const QString& plu);
    /// The same for a text that is still being typed: asked for once that has rested for 300 ms.
    Q_INVOKABLE void typePlu(const QString& plu);
    /// Once more what brought nothing.
    Q_INVOKABLE void retryCatalogue();

protected:
    /// Nothing is chosen any more; a single work area is.
    void clearCatalogue();
    void selectSingleArea();

    ItemTypeModel* m_types;
    ItemModel* m_items;
    AreaListModel* m_areas;

private:
    void fetchItems(const QJsonObject& asked);

    QTimer m_typing;
    QString m_plu;       ///< what is asked for when m_typing ends
    QJsonObject m_asked; ///< the newest request for items; an older one's answer comes to nothing
};

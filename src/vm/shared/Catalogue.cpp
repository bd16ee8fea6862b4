#include "vm/shared/Catalogue.h"

#include "app/MainClass.h"
#include "common/GlobalConfig.h"
#include "services/Bca01Service.h"

namespace {

constexpr int typingRestMs = 300;
constexpr int fewestColumns = 5; ///< a setting must be above

QString pictureUrl(const QString& path)
{
    if (path.isEmpty())
        return QStringLiteral("../../images/empty.png");
    return path.contains(QLatin1String("http")) ? path : GlobalConfig::getInstance()->kvupload() + path;
}

item_struct rowOf(const ItemDto& item)
{
    return {item.id(),       item.name(),        item.price(),      item.unit(),  pictureUrl(item.pic_path()),
            item.sell_flg(), item.server_type(), item.is_desk_no(), item.tagId(), item.worker_type(),
            item.times()};
}

} // namespace

ItemModel::ItemModel(QObject* parent)
    : RowModel({field("itemName", &item_struct::itemName), field("itemId", &item_struct::itemId),
                field("price", &item_struct::price), field("unit", &item_struct::unit),
                field("img", &item_struct::img), field("sellFlg", &item_struct::sellFlg),
                field("serverType", &item_struct::serverType), field("tagId", &item_struct::tagId),
                field("workerType", &item_struct::workerType)},
               parent)
{
}

void ItemModel::update(const Array<ItemDto*>& items)
{
    QVector<item_struct> rows;
    rows.reserve(items.size());
    for (const ItemDto* item : items) {
        if (item->is_pack_ticket() != 1)
            rows.append(rowOf(*item));
    }
    refresh(rows);
}

ItemTypeModel::ItemTypeModel(QObject* parent)
    : RowModel({field("typeName", &item_type_struct::typeName), field("typeId", &item_type_struct::typeId),
                field("checked", &item_type_struct::isChecked)},
               parent)
{
}

void ItemTypeModel::update(const Array<ItemTypeDto*>& types)
{
    QVector<item_type_struct> rows;
    for (const ItemTypeDto* type : types)
        rows.append({type->name(), type->id(), false});
    refresh(rows);
}

AreaListModel::AreaListModel(QObject* parent)
    : RowModel({field("areaName", &area_struct::areaName), field("areaId", &area_struct::areaId)}, parent)
{
}

void AreaListModel::fill(const QString& none)
{
    QVector<area_struct> rows;
    if (!none.isEmpty())
        rows.append({{}, none});
    for (const work_area_struct& area : *GlobalConfig::getInstance()->workAreaList())
        rows.append({area.areaId, area.areaName});
    replace(rows);
}

CatalogueVm::CatalogueVm(QObject* parent)
    : ActionVm(parent), m_types(new ItemTypeModel(this)), m_items(new ItemModel(this)),
      m_areas(new AreaListModel(this))
{
    const int columns = GlobalConfig::getInstance()->cons_item_count;
    if (columns > fewestColumns)
        setItemColumns(columns);
    setIsSmallImgMode(MainClass::getInstance()->getSqlData(QStringLiteral("is_small_img_mode")) ==
                      QLatin1String("1"));
    m_typing.setSingleShot(true);
    m_typing.setInterval(typingRestMs);
    connect(&m_typing, &QTimer::timeout, this, [this] { queryPlu(m_plu); });
    m_areas->fill();
}

void CatalogueVm::selectSingleArea()
{
    if (m_areas->rowCount() != 1)
        return;
    const area_struct only = m_areas->row(0);
    selectArea(only.areaId, only.areaName);
}

void CatalogueVm::selectArea(const QString& id, const QString& name)
{
    if (id.isEmpty() || name.isEmpty())
        return;
    setAreaName(name);
    setAreaId(id);
    getItemTypeApi();
}

void CatalogueVm::getItemTypeApi()
{
    if (areaId().isEmpty())
        return;
    const QPointer<CatalogueVm> self(this);
    const bool isRead =
        fetch(&Bca01Service::getItemTypeList, {{"selAreaId", areaId()}}, [this](const GetTypeList& reply) {
            m_types->update(reply.data() ? reply.data()->typeList() : Array<ItemTypeDto*>());
        });
    if (!self)
        return;
    setIsCatalogueFailed(!isRead);
    if (!isRead)
        return;
    if (m_types->rowCount() > 0)
        onSelectType(m_types->row(0).typeId);
    else
        m_items->replace({}); // those of another area aren't sold here
}

void CatalogueVm::onSelectType(const QString& code)
{
    m_types->onChecked(m_types->find([&](const item_type_struct& type) { return type.typeId == code; }));
    getItemListApi(code, {}, {});
}

void CatalogueVm::getItemListApi(const QString& typeId, const QString& firstCode, const QString& barCode)
{
    QJsonObject asked{{"selAreaId", areaId()}};
    if (!typeId.isEmpty())
        asked.insert("typeId", typeId);
    if (!firstCode.isEmpty())
        asked.insert("plucode", firstCode);
    if (!barCode.isEmpty())
        asked.insert("barCode", barCode);
    fetchItems(asked);
}

void CatalogueVm::queryPlu(const QString& plu)
{
    m_typing.stop();
    if (!plu.isEmpty()) {
        fetchItems({{"selAreaId", areaId()}, {"plucode", plu}});
        return;
    }
    m_asked = {};
    setIsCatalogueFailed(false);
    m_items->replace({});
}

void CatalogueVm::typePlu(const QString& plu)
{
    m_plu = plu;
    if (plu.isEmpty())
        queryPlu(plu);
    else
        m_typing.start();
}

void CatalogueVm::retryCatalogue()
{
    if (m_asked.isEmpty() || m_types->rowCount() == 0)
        getItemTypeApi();
    else
        fetchItems(m_asked);
}

void CatalogueVm::fetchItems(const QJsonObject& asked)
{
    m_typing.stop();
    m_asked = asked;
    const QPointer<CatalogueVm> self(this);
    // Letters that are typed during a search belong to the next one.
    const auto endpoint = asked.contains("plucode") ? &Bca01Service::searchItems : &Bca01Service::getItemList;
    const bool isRead = fetch(endpoint, asked, [this, asked](const GetItemList& reply) {
        if (reply.data() && m_asked == asked)
            m_items->update(reply.data()->itemList());
    });
    if (self && m_asked == asked)
        setIsCatalogueFailed(!isRead);
}

void CatalogueVm::clearCatalogue()
{
    m_typing.stop();
    m_asked = {};
    m_types->replace({});
    m_items->replace({});
    setAreaId({});
    setAreaName({});
    setIsCatalogueFailed(false);
}

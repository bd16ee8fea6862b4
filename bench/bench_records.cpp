// Reading a reply of 1,000 rooms into records against parsing the same bytes alone.

#include "Measure.h"
#include "SampleRooms.h"

#include "dto/room/RoomRecords.h"
#include "serialization/QJsonSerializer.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>

namespace {

constexpr int rooms = 1000;
constexpr int rounds = 200;

QByteArray replyBytes()
{
    QJsonArray list;
    for (int i = 0; i < rooms; ++i)
        list.append(sampleRoom(i));
    return QJsonDocument(QJsonObject{{"code", "200"}, {"msg", "ok"}, {"data", list}})
        .toJson(QJsonDocument::Compact);
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const QByteArray bytes = replyBytes();
    std::vector<double> parsing;
    std::vector<double> reading;
    int read = 0;
    for (int i = 0; i < rounds; ++i) {
        parsing.push_back(
            Measure::microseconds([&] { read += QJsonDocument::fromJson(bytes).object().size(); }));
        GetRoomListDto reply;
        reading.push_back(Measure::microseconds([&] {
            QJsonSerializer().deserializeObject(QJsonDocument::fromJson(bytes).object(), &reply,
                                                &GetRoomListDto::staticMetaObject);
        }));
        read += reply.data().size();
    }
    if (read != rounds * (rooms + 3))
        return 1;
    Measure::printRatio("reply of 1,000 rooms: parse and map / parse alone", "us", Measure::median(parsing),
                        Measure::median(reading), 1.8);
    return 0;
}

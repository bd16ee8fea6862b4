#pragma once

#include "common/RowModel.h"
#include "devices/HandCardDevice.h"
#include "devices/SerialPort.h"
#include "vm/module5/Module5Vm.h"
#include "vm/shared/ActionVm.h"
#include "vm/shared/ReaderListener.h"

#include <memory>

/// What a reader sent.
struct reading_struct
{
    QString reader;
    QString time;
    QString raw;    ///< bytes as hexadecimal pairs, then as characters
    QString number; ///< what a page would be given; empty: no card
};

class ReadingModel : public RowModel<reading_struct>
{
    Q_OBJECT

public:
    explicit ReadingModel(QObject* parent = nullptr);

    /// On top; of the rows before only the last few stay.
    void add(const reading_struct& reading);
};

/// A line to the back end and how long it took to answer.
struct line_check_struct
{
    QString name;
    QString result;
    bool isOk = false;
};

class LineCheckModel : public RowModel<line_check_struct>
{
    Q_OBJECT

public:
    explicit LineCheckModel(QObject* parent = nullptr);
};

/// The technician's workbench on the settings' page: each test tries what the page shows, saved or not, and
/// lets go of it at its end.
class ChecksVm : public ActionVm
{
    Q_OBJECT
    PROPERTY(QString, printResult, setPrintResult, {})
    PROPERTY(bool, isPrintGood, setIsPrintGood, false)
    PROPERTY(QString, voiceResult, setVoiceResult, {})
    PROPERTY(QString, linesResult, setLinesResult, {})
    PROPERTY(QString, diagnosisResult, setDiagnosisResult, {})
    PROPERTY(QString, readersResult, setReadersResult, {}) // which readers are listened to
    PROPERTY(bool, isReading, setIsReading, false)
    CONSTANT_PROPERTY(ReadingModel*, pReadingModel, m_readings)
    CONSTANT_PROPERTY(LineCheckModel*, pLineModel, m_lines)

public:
    explicit ChecksVm(QObject* parent = nullptr);
    ~ChecksVm() override;

    /// Prints a slip on the chosen printer and tells how it ended.
    Q_INVOKABLE void printTest(Module5Vm* settings);
    /// Says what a call of guest 8001 would say.
    Q_INVOKABLE void voiceTest(Module5Vm* settings);
    /// Shows what either reader sends until stopReading(); the cards go nowhere else meanwhile.
    Q_INVOKABLE void startReading(Module5Vm* settings);
    Q_INVOKABLE void stopReading();
    Q_INVOKABLE void measureLines();
    Q_INVOKABLE void writeDiagnosis();

private:
    QString listenToStaffReader(const QString& port);
    QString listenToHandReader(Module5Vm* settings);
    void note(const QString& reader, const QByteArray& raw, const QString& number);
    void sayNext();

    ReadingModel* m_readings;
    LineCheckModel* m_lines;
    ReaderListener m_staffCards{this};
    ReaderListener m_handCards{this};
    std::unique_ptr<SerialPort> m_ownPort;     ///< where the page's port isn't the running one
    std::unique_ptr<HandCardDevice> m_ownHand; ///< where no hand card reader runs
    QList<QMetaObject::Connection> m_taps;
    QPointer<QTextToSpeech> m_engine; ///< the page's
    QString m_sentence;
    int m_leftToSay = 0;
};

#include "layerman/listing/ListWriter.h"

#include "layerman/listing/CsvWriter.h"
#include "layerman/listing/JsonWriter.h"
#include "layerman/listing/TableWriter.h"

std::unique_ptr<ListWriter> ListWriter::make(const QString& format, const ListColumns& columns,
                                             bool several, Output& output)
{
    if (format == QLatin1String("csv"))
        return std::make_unique<CsvWriter>(columns, output);
    if (format == QLatin1String("json"))
        return std::make_unique<JsonWriter>(columns, output);
    return std::make_unique<TableWriter>(columns, several, output);
}

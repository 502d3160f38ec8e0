/// Files that the Excel tests choose.
#pragma once

#include <QByteArray>

namespace testing_support {

/// @return the smallest package that is a workbook: its list of parts, and an empty workbook.
inline QByteArray smallestWorkbook() {
    return QByteArray::fromBase64(
        "UEsDBBQAAAAIAAAAIQCU7PTVoAAAANQAAAATAAAAW0NvbnRlbnRfVHlwZXNdLnhtbF2PwQ6CMBBEf4X0augS"
        "Dx4McPGuHvyBtV2ggXabdkX8ewFvniaTybzJ1I9PpFwsfgq5UYNIPANkM5DHrDlSWJOOk0dZbeohohmxJzhW"
        "1QkMB6EgpWwM1da3mVJyloo7Jrmip0bBMsGb0/hkHvXKUsXlV9p2G4UxTs6gOA4wB/u3WHLXOUOWzcuvFZ1j"
        "IrR5IBI/6V21RxcOGxjaGvYz7RdQSwMEFAAAAAgAAAAhAIWgN+RUAAAAYAAAAA8AAAB4bC93b3JrYm9vay54"
        "bWw1jEEKgCAQAL8SPqCVDh3C/IvVlqHrirtQzy+CjjMD4y5uaWFO3U25yGyiap0AZI1IQXquWN6yc6OgL7YD"
        "pDYMm0REpQyDtSNQOIvx7nMC3sF/9Q9QSwECFAMUAAAACAAAACEAlOz01aAAAADUAAAAEwAAAAAAAAAAAAAA"
        "gAEAAAAAW0NvbnRlbnRfVHlwZXNdLnhtbFBLAQIUAxQAAAAIAAAAIQCFoDfkVAAAAGAAAAAPAAAAAAAAAAAA"
        "AACAAdEAAAB4bC93b3JrYm9vay54bWxQSwUGAAAAAAIAAgB+AAAAUgEAAAAA");
}

}  // namespace testing_support

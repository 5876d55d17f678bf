#ifndef HOST_CATEGORY_RECORDS_H
#define HOST_CATEGORY_RECORDS_H

#include <cstdint>

#include "host/data.h"
#include "host/host_export.h"

namespace qmservice {

/// One part of a group category. An instrument is in the group when at least one part takes it in and no part leaves
/// it out.
class HOST_EXPORT CGroupCategorySubInfo : public RecordOf<CGroupCategorySubInfo> {
public:
    CGroupCategorySubInfo() = default;
    CGroupCategorySubInfo(const CGroupCategorySubInfo&) = default;
    CGroupCategorySubInfo& operator=(const CGroupCategorySubInfo&) = default;
    ~CGroupCategorySubInfo() override;

    std::int32_t category = 0;  ///< number of a system or custom category
    std::int32_t excluded = 0;  ///< 0: the part's members are in the group; otherwise they are left out of it
};

}  // namespace qmservice

#endif  // HOST_CATEGORY_RECORDS_H

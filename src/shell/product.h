#pragma once

namespace veldrane {

inline constexpr char kSupportAddress[] = "support@quillmere.example";

} // namespace veldrane

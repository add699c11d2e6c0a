#pragma once

#include "support/tds_contents.h"

#include <string_view>

namespace veldrane::testing {

// The tables of a script that defines a database of SQL Server, one column, key or reference a line:
//
//   CREATE TABLE [dbo].[Album]
//       [AlbumId] INT NOT NULL IDENTITY,
//       CONSTRAINT [PK_Album] PRIMARY KEY CLUSTERED ([AlbumId])
//   ALTER TABLE [dbo].[Album] ADD CONSTRAINT [FK_AlbumArtistId]
//       FOREIGN KEY ([ArtistId]) REFERENCES [dbo].[Artist] ([ArtistId]) ON DELETE NO ACTION;
[[nodiscard]] TdsContents ReadSqlServerScript(std::string_view script);

} // namespace veldrane::testing

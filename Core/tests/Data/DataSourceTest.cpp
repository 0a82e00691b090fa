#include "Data/DataSource.h"

#include <gtest/gtest.h>

namespace {

using keo::DataSource;
using keo::Resource;

TEST(DataSourceTest, DefaultHasAnEmptyNameAndResource) {
    const DataSource source;
    EXPECT_EQ(source.getName(), "");
    EXPECT_EQ(source.getResource().getUri(), "");
}

TEST(DataSourceTest, NameAndResourceReadBackAsSet) {
    DataSource source("parcels", Resource("data/parcels.geojson"));
    EXPECT_EQ(source.getName(), "parcels");
    EXPECT_EQ(source.getResource(), Resource("data/parcels.geojson"));
    source.setName("地块");
    source.setResource(Resource("https://example.invalid/p.json"));
    EXPECT_EQ(source.getName(), "地块");
    EXPECT_EQ(source.getResource().getUri(), "https://example.invalid/p.json");
}

} // namespace

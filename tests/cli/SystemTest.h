#pragma once

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "CliTest.h"

/// The program with the delivered database and catalogue, and a user directory of its own.
class SystemTest : public CliTest {
protected:
    using Json = nlohmann::ordered_json;

    SystemTest()
    {
        for (const char* name : {"zorgeodatabase.geo", "ZorProjectionStatic.dat"}) {
            std::filesystem::copy_file(std::string(ZORGEO_DATA_DIR) + name, Path("data/") + name,
                                       std::filesystem::copy_options::overwrite_existing);
        }
    }

    /// The example of the help texts: transverse Mercator of its own on International 1924, with the
    /// delivered transformation to ED50.
    static Json Example()
    {
        return Json::parse(std::ifstream(std::string(ZORGEO_DATA_DIR) + "examples/harbour-grid.json"));
    }
    /// A transformation of the example's own.
    static Json OwnDatum()
    {
        return {{"name", "Harbour shift"},
                {"method", "Bursa/Wolfe(7 Parameters)"},
                {"description", ""},
                {"source", {{"name", "WGS84"}}},
                {"target", {{"name", "International 1924"}}},
                {"shift", {{"x", 87.0}, {"y", 98.0}, {"z", 121.0}, {"unit", "m"}}},
                {"rotation", {{"x", 0.0}, {"y", 0.0}, {"z", 0.0}, {"unit", "arcsec"}}},
                {"scale", {{"value", 0.0}, {"unit", "ppm"}}},
                {"rates", nullptr},
                {"fixedHeight", nullptr}};
    }

    ToolRun RunOn(const char* action, const std::string& text, const std::vector<std::string>& more = {}) const
    {
        Write("new.json", text);
        std::vector<std::string> arguments = {"system", action, Path("new.json")};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Run(arguments);
    }
    ToolRun Add(const Json& system, const std::vector<std::string>& more = {}) const
    {
        return RunOn("add", system.dump(), more);
    }
    std::string UserDatabase() const { return Read("user/zorusergeobase.geo"); }
};

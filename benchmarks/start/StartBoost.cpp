// What StartTool.cpp does, with Boost.Program_options, which is told of its options in code:
//
//     start-boost <number of options> [<flag> <value>]...

#include <boost/program_options.hpp>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iostream>

int main(int argc, char** argv) {
    namespace po = boost::program_options;
    try {
        po::options_description description("The tool");
        auto const count = argc > 1 ? std::atoi(argv[1]) : 0;
        for (int i = 0; i < count; ++i) {
            char name[32];
            std::snprintf(name, sizeof(name), "parameter%05d", i);
            description.add_options()(name, po::value<int>()->default_value(1), "What the parameter is for");
        }
        po::variables_map settings;
        po::store(po::parse_command_line(argc - 1, argv + 1, description), settings);
        po::notify(settings);
        long sum = 0;
        for (char const* name : {"parameter00000", "parameter00004", "parameter00009"}) {
            sum += settings[name].as<int>();
        }
        std::cout << sum << '\n';
    } catch (std::exception const& error) {
        std::cerr << "start-boost: " << error.what() << '\n';
        return 1;
    }
}

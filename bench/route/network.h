#pragma once

#include <dbid.h>
#include <dbmain.h>
#include <gepnt3d.h>

#include <memory>
#include <vector>

/// A drawing with one route group: runs of lines and tees on parallel tracks, with 2.5 connection points per
/// element on average.
struct Network {
    explicit Network(int size);
    ~Network();
    Network(const Network&) = delete;
    Network& operator=(const Network&) = delete;

    std::unique_ptr<AcDbDatabase> database;
    AcDbObjectIdArray elements;
    AcDbObjectId group;

    /// The connection points of all elements, each with the number of its element.
    struct Point {
        AcGePoint3d place;
        int element;
    };
    [[nodiscard]] std::vector<Point> points() const;
};

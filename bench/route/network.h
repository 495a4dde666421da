#pragma once

#include <dbid.h>
#include <dbmain.h>
#include <gepnt3d.h>

#include <memory>
#include <vector>

/// A drawing with one route group: runs of lines on parallel tracks, with tees and elbows between them, 2.5
/// connection points an element.
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

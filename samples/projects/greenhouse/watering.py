"""Decides which beds need water from the newest line of the sensor log."""

import csv
from collections import OrderedDict

MOISTURE_TARGET_PERCENT = 40


def newest_by_bed(lines):
    """The last reading of each bed, in the order in which beds first appear."""
    newest = OrderedDict()
    for row in csv.DictReader(lines):
        newest[row["bed"]] = row
    return newest


def beds_to_water(lines):
    """Names of the beds whose soil is drier than the target."""
    readings = newest_by_bed(lines)
    return [
        bed
        for bed, row in readings.items()
        if float(row["soil_moisture_percent"]) < MOISTURE_TARGET_PERCENT
    ]


if __name__ == "__main__":
    with open("sensor_log.csv", newline="", encoding="utf-8") as log:
        print("water:", ", ".join(beds_to_water(log)) or "nothing")

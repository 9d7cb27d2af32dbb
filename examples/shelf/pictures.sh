#!/bin/sh
# A picture of each sheet of a shelf, in the same folders: pictures.sh FOLDER PICTURES
exec "${KOVRA:-kovra}" plot "$1" -o "$2" --format png --size 2400

<?php
// Counts the cards of a vCard file, read by sabre/vobject.
spl_autoload_register(fn ($class) => require '/usr/share/php/' . strtr($class, '\\', '/') . '.php');

$splitter = new Sabre\VObject\Splitter\VCard(fopen($argv[1], 'r'));
$cards = 0;
$values = 0;
while ($card = $splitter->getNext()) {
    ++$cards;
    foreach ($card->children() as $property)
        $values += (string) $property->value !== '';
}
echo $cards, "\n";
